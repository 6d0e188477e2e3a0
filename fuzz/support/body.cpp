/*
 * Prints the body of a message, a seed of the targets that take bodies. The decoder finds where it
 * starts.
 *     fuzz_body MESSAGE
 * Exit code 1 for a message that has no multipart body in the form that the codec reads.
 */
#include <qvlsmilparser.h>

#include <QFile>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: fuzz_body MESSAGE\n");
        return 2;
    }
    QFile file(QString::fromLocal8Bit(argv[1]));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "%s cannot be read\n", argv[1]);
        return 2;
    }
    QvlMessage message;
    if (!message.receive(file.readAll(), QvlMessage::Strict).isOk()
        || message.parts().getPartCount() == 0)
        return EXIT_FAILURE;
    const QByteArray body = message.header().getBodyOctets();
    const auto size = std::size_t(body.size());
    return std::fwrite(body.constData(), 1, size, stdout) == size ? EXIT_SUCCESS : 2;
}
