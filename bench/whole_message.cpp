/*
 * The whole way of a message in and out: of messages made here, and of messages of real phones
 * where a folder has some.
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

// A message in all its three halves.
struct WholeMessage
{
    MMS_UA_UAMsg header;
    Slideshow show;
};

bool receive(const QByteArray &pdu)
{
    WholeMessage message;
    auto &[header, show] = message;
    if (!decodeHeader(pdu, &header))
        return false;
    if (header.getBodyLength() == 0)
        return true;
    const auto body = QByteArray::fromRawData(reinterpret_cast<const char *>(header.getBody()),
                                              header.getBodyLength());
    if (!parseBody(body, &header, &show.message))
        return false;
    const auto *smil = show.message.getSmilPart();
    return !smil
        || MMS_COMP_SMILParser().parse(smil->getBodyData(), &show.message, &show.slides)
        == SmilResult::Ok;
}

QByteArray send(WholeMessage *message)
{
    auto &[header, show] = *message;
    const QString smil = MMS_COMP_SMILParser::convertToSMILLang(&show.slides);
    show.message.getSmilPart()->setBodyData(smil.toUtf8());
    const QByteArray body = MMS_COMP_SMILMultipartParser::assembleBody(&show.message, &header);
    return encodedHeader(&header) + body;
}

auto messageOf(int octets)
{
    constexpr unsigned char retrieveConf = 132;
    auto message = std::make_shared<WholeMessage>();
    auto smil = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    smil->setContentType(QStringLiteral("application"));
    smil->setContentSubType(QStringLiteral("smil"));
    smil->setContentLocation(QStringLiteral("slides.smil"));
    smil->setContentID(QStringLiteral("<slides.smil>"));
    fillHeader(&message->header, retrieveConf);
    message->show.message.appendBodypart(smil.release());
    message->show.message.setStart(QStringLiteral("<slides.smil>"));
    addPictures(&message->show.message, PictureCount, octets, Names::Given);
    fill(&message->show, {.slides = SlideCount});
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

// Refusing a message is work too.
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
    addCorpus(QDir(QStringLiteral(QVL_CORPUS)));
}
