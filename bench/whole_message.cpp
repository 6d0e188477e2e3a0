/*
 * A whole message in and out: messages composed here, and messages of real phones if a folder has
 * some.
 */
#include "subjects.h"
#include "support/benchmarks.h"
#include "support/messages.h"
#include "support/presentations.h"

#include <QDir>
#include <QFile>

#include <memory>

namespace {

constexpr int pictureSizes[] = {1000, 30'000, 300'000};
constexpr int SlideCount = 10;
constexpr int PictureCount = 3;

// Reads slides but does not generate them, which would open pictures and clips.
bool receive(const QByteArray &pdu)
{
    QvlMessage message;
    if (!message.receive(pdu).isOk())
        return false;
    return !message.parts().getSmilPart() || message.present().isOk();
}

QByteArray send(QvlMessage *message)
{
    const QString smil = MMS_COMP_SMILParser::convertToSMILLang(&message->slides());
    message->parts().getSmilPart()->setBodyData(smil.toUtf8());
    QByteArray pdu;
    return message->encode(&pdu).isOk() ? pdu : QByteArray();
}

auto messageOf(int octets)
{
    auto message = std::make_shared<QvlMessage>();
    auto smil = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    smil->setContentType(QStringLiteral("application"));
    smil->setContentSubType(QStringLiteral("smil"));
    smil->setContentLocation(QStringLiteral("slides.smil"));
    smil->setContentID(QStringLiteral("<slides.smil>"));
    fillHeader(&message->header(), QvlMessageType::RetrieveConf);
    message->parts().appendBodypart(smil.release());
    message->parts().setStart(QStringLiteral("<slides.smil>"));
    addPictures(&message->parts(), PictureCount, octets, Names::Given);
    fill(message.get(), {.slides = SlideCount});
    return message;
}

auto sending(int octets)
{
    auto message = messageOf(octets);
    const qint64 size = send(message.get()).size();
    return Work{[message] { return !send(message.get()).isEmpty(); }, size};
}

auto receiving(const QByteArray &pdu)
{
    return Work{[pdu] { return receive(pdu); }, pdu.size()};
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Includes messages that are rejected.
void addCorpus(const QDir &folder)
{
    const QStringList names =
        folder.entryList({QStringLiteral("*.mms"), QStringLiteral("*.MMS")}, QDir::Files);
    for (const QString &name : names) {
        addBenchmark("corpus/" + name.toStdString(), [path = folder.filePath(name)] {
            const QByteArray pdu = contentOf(path);
            return Work{[pdu] {
                            benchmark::DoNotOptimize(receive(pdu));
                            return true;
                        },
                        pdu.size()};
        });
    }
}

} // namespace

void addWholeMessageBenchmarks()
{
    for (int octets : pictureSizes) {
        const std::string suffix = '/' + std::to_string(octets);
        addBenchmark("receive" + suffix, [=] { return receiving(send(messageOf(octets).get())); });
        addBenchmark("send" + suffix, [=] { return sending(octets); });
    }
    if (const QString corpus = QStringLiteral(QVL_CORPUS); !corpus.isEmpty())
        addCorpus(QDir(corpus));
}
