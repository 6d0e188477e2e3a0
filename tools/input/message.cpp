#include "input/message.h"

#include "input/files.h"

#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <cerrno>
#include <new>

namespace {

using Layer = QvlMessage::Result::Layer;

QvlMessage::Result receive(Message *message)
{
    errno = 0;
    const QvlMessage::Result received = message->receive(message->octets, message->reading);
    // The codec of the body reports a part without memory as data that ran out.
    if (!received.isOk() && errno == ENOMEM)
        throw std::bad_alloc();
    requireMemory(received);
    return received;
}

void decode(Message *message)
{
    if (message->octets.isEmpty()) { // for the decoder, a header without fields
        message->headerResult = WireResult::OutOfData;
        return;
    }
    const QvlMessage::Result received = receive(message);
    if (received.layer == Layer::Header)
        message->headerResult = static_cast<unsigned char>(received.code);
    else if (message->isMultipart())
        message->bodyResult = received.code;
    if (received.layer == Layer::Header || !received.isOk())
        return;
    const auto *smil = message->parts().getSmilPart();
    if (smil)
        message->smil = smil->getBodyData();
    const QvlMessage::Result presented = message->present();
    requireMemory(presented);
    if (smil)
        message->smilResult = presented.code;
}

std::unique_ptr<MMS_COMP_SMILMultipartBodypart> emptyPart(const QString &location)
{
    auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    QString type;
    QString subtype;
    MMS_COMP_Util::getMIMETypeByExtName(MMS_COMP_Util::getExtName(location), type, subtype);
    part->setContentType(type);
    part->setContentSubType(subtype);
    part->setContentLocation(location);
    return part;
}

// A reference matches locations that are the same in lower case. A lookup in the message would
// visit all parts that were added before.
void addParts(const QByteArray &smil, MMS_COMP_SMILMultipart *body)
{
    const QString text = QString::fromUtf8(smil);
    QXmlStreamReader reader(
        text.sliced(std::max<qsizetype>(text.indexOf(QLatin1String("<smil")), 0)));
    reader.setNamespaceProcessing(false);
    QSet<QString> known{QString()};
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString location =
            reader.attributes().value(QLatin1String("src")).trimmed().toString();
        const qsizetype knownBefore = known.size();
        known.insert(location.toLower());
        if (known.size() > knownBefore)
            body->appendBodypart(emptyPart(location).release());
    }
}

// Reads the document twice: first to check it, then with a part for each of its media.
void readDocument(Message *message)
{
    MMS_COMP_SMILParser parser;
    MMS_COMP_SMILData trial(nullptr);
    message->smil = message->octets;
    message->smilResult = parser.parse(message->smil, nullptr, &trial);
    requireMemory({Layer::Presentation, *message->smilResult});
    if (message->smilResult == SmilResult::NotWellFormed
        || message->smilResult == SmilResult::NullArgument)
        return; // what follows reads XML without the limits of a document
    addParts(message->smil, &message->parts());
    message->smilResult = parser.parse(message->smil, &message->parts(), &message->slides());
    if (!message->slides().getRootLayout())
        message->smilResult = SmilResult::OutOfMemory;
    requireMemory({Layer::Presentation, *message->smilResult});
}

std::unique_ptr<Message> openFile(const QString &fileName, const ReadOptions &options,
                                  QString *error)
{
    auto message = std::make_unique<Message>();
    message->fileName = fileName;
    message->reading = options.reading;
    return readFile(fileName, options.sizeLimit, &message->octets, error) ? std::move(message)
                                                                          : nullptr;
}

} // namespace

const char *stateName(MessageState state)
{
    constexpr std::array names{"ok", "changed", "refused"};
    return names[std::size_t(state)];
}

std::unique_ptr<Message> decodeMessage(const QByteArray &octets)
{
    auto message = std::make_unique<Message>();
    message->octets = octets;
    decode(message.get());
    return message;
}

std::unique_ptr<Message> readMessage(const QString &fileName, const ReadOptions &options,
                                     QString *error)
{
    auto message = openFile(fileName, options, error);
    if (message)
        decode(message.get());
    return message;
}

std::unique_ptr<Message> readMessageOrDocument(const QString &fileName, const ReadOptions &options,
                                               QString *error)
{
    auto message = openFile(fileName, options, error);
    if (message && isPdu(message->octets))
        decode(message.get());
    else if (message)
        readDocument(message.get());
    return message;
}

void requireMemory(const QvlMessage::Result &result)
{
    // The codecs of the header report a lack of memory as a bad argument, and get no other.
    if (result.code
        == (result.layer == Layer::Header ? int(WireResult::BadArgument)
                                          : MultipartResult::OutOfMemory))
        throw std::bad_alloc();
}

bool isPdu(const QByteArray &octets)
{
    return octets.startsWith(char(HeaderFieldCode::MessageType | 0x80));
}

QString whyNoMessage(const Message &message)
{
    if (message.octets.isEmpty())
        return QStringLiteral("the file is empty");
    return isPdu(message.octets)
        ? QString()
        : QStringLiteral("a message begins with the octet 8C and this file "
                         "does not; remove headers of HTTP or WSP before "
                         "it");
}
