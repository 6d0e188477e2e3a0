/*
 * A whole message from outside on its way through the library: decoded, parsed, presented,
 * written, assembled, encoded and decoded again. A mutator of its own changes single parts, so that
 * the lengths around them stay right.
 */
#include "support/pdu.h"

#include <algorithm>
#include <cstring>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t most);

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

struct Message
{
    QByteArray pdu;
    MMS_UA_UAMsg header;
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILData slides{&body};
};

bool decode(Message *message)
{
    if (decodeHeader(message->pdu, &message->header) != WireResult::Read)
        return false;
    message->body.setMimeType(message->header.getContentType());
    message->body.setSubType(message->header.getContentSubType());
    return MMS_COMP_SMILMultipartParser::parse(bodyOf(message->header), &message->header,
                                               &message->body)
        == MultipartResult::Ok;
}

int present(Message *message)
{
    const Part *smil = message->body.getSmilPart();
    if (smil)
        return MMS_COMP_SMILParser().parse(smil->getBodyData(), &message->body, &message->slides);
    MMS_COMP_SMILParser::makeSmilForMixed(&message->body, &message->slides, true);
    return SmilResult::Ok;
}

QByteArray encode(Message *message)
{
    const QByteArray body =
        MMS_COMP_SMILMultipartParser::assembleBody(&message->body, &message->header);
    return body.isEmpty() ? QByteArray() : encodeHeader(&message->header) + body;
}

QList<QByteArray> bodiesOf(const MMS_COMP_SMILMultipart &body)
{
    QList<QByteArray> bodies;
    for (int i = 0; i < body.getPartCount(); ++i)
        bodies += body.getBodypartByIndex(i)->getBodyData();
    return bodies;
}

// True when a text is short and holds nothing that the wire or an attribute's value would change.
bool isPlain(const QString &text)
{
    return text.size() < 100 && std::all_of(text.begin(), text.end(), [](QChar c) {
               return c.unicode() < 128
                   && (c.isLetterOrNumber() || c == u'.' || c == u'_' || c == u'-');
           });
}

// Charsets are converted, a text loses a zero at its end, and long headers are cut.
bool isKept(const Part &part)
{
    return isPlain(part.getContentLocation())
        && isPlain(MMS_COMP_SMILMultipart::parseCid(part.getContentID()))
        && isPlain(part.getContentType()) && isPlain(part.getSubType())
        && part.getCharset() != QLatin1String("UCS2") && !part.getBodyData().endsWith('\0');
}

bool isKept(const MMS_COMP_SMILMultipart &body)
{
    for (int i = 0; i < body.getPartCount(); ++i) {
        if (!isKept(*body.getBodypartByIndex(i)))
            return false;
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Message message;
    message.pdu = QByteArray(reinterpret_cast<const char *>(data), qsizetype(size));
    if (!decode(&message))
        return 0;
    const bool brought = message.body.getSmilPart();
    const int presented = present(&message);
    message.slides.removeEmptyTextBeforeSend();
    if (Part *smil = message.body.getSmilPart(); smil && presented == SmilResult::Ok)
        smil->setBodyData(MMS_COMP_SMILParser::convertToSMILLang(&message.slides).toUtf8());

    Message again;
    again.pdu = encode(&message);
    if (again.pdu.isEmpty() || !decode(&again))
        return 0;
    if (!isKept(message.body))
        return 0;
    require(bodiesOf(again.body) == bodiesOf(message.body),
            "encoding keeps the octets of the parts");
    if (!brought) {
        require(present(&again) == SmilResult::Ok, "slides that were made read back");
        require(again.slides.getTotalSlidesNum() == message.slides.getTotalSlidesNum(),
                "as many slides read back as were made");
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size,
                                               std::size_t most, unsigned int seed)
{
    Message message;
    message.pdu = QByteArray(reinterpret_cast<const char *>(data), qsizetype(size));
    if (seed % 4 == 0 || !decode(&message) || message.body.getPartCount() == 0)
        return LLVMFuzzerMutate(data, size, most);
    Part *part = message.body.getBodypartByIndex(int(seed / 4) % message.body.getPartCount());
    QByteArray octets = part->getBodyData();
    const qsizetype length = octets.size();
    octets.resize(length + 64);
    octets.resize(qsizetype(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t *>(octets.data()),
                                             std::size_t(length), std::size_t(octets.size()))));
    part->setBodyData(octets);
    const QByteArray changed = encode(&message);
    if (changed.isEmpty() || std::size_t(changed.size()) > most)
        return LLVMFuzzerMutate(data, size, most);
    std::memcpy(data, changed.constData(), std::size_t(changed.size()));
    return std::size_t(changed.size());
}
