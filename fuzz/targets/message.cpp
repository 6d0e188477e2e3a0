/*
 * An untrusted message on its way through the library: decoded, parsed, presented, written,
 * assembled, encoded and decoded again.
 */
#include "support/part_mutator.h"
#include "support/pdu.h"

#include <algorithm>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

bool decode(QvlMessage *message, const QByteArray &pdu)
{
    return message->receive(pdu).isOk();
}

QByteArray encode(QvlMessage *message)
{
    QByteArray pdu;
    return message->parts().getPartCount() > 0 && message->encode(&pdu).isOk() ? pdu : QByteArray();
}

QList<QByteArray> bodiesOf(const MMS_COMP_SMILMultipart &body)
{
    QList<QByteArray> bodies;
    for (int i = 0; i < body.getPartCount(); ++i)
        bodies += body.getBodypartByIndex(i)->getBodyData();
    return bodies;
}

// True for a short text that neither the wire nor an attribute's value changes.
bool isPlain(const QString &text)
{
    return text.size() < 100 && std::all_of(text.begin(), text.end(), [](QChar c) {
               return c.unicode() < 128
                   && (c.isLetterOrNumber() || c == u'.' || c == u'_' || c == u'-');
           });
}

// True if encoding keeps the part: it converts charsets, drops a zero at the end of a text, and
// truncates long headers.
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
    QvlMessage message;
    if (!decode(&message, QByteArray(reinterpret_cast<const char *>(data), qsizetype(size))))
        return 0;
    const bool hasSmil = message.parts().getSmilPart();
    const bool presented = message.present().isOk();
    message.slides().removeEmptyTextBeforeSend();
    if (presented && (hasSmil || message.parts().getPartCount() > 0))
        require(message.storeSlides(), "slides are stored");

    QvlMessage again;
    const QByteArray pdu = encode(&message);
    if (pdu.isEmpty() || !decode(&again, pdu))
        return 0;
    if (!isKept(message.parts()))
        return 0;
    require(bodiesOf(again.parts()) == bodiesOf(message.parts()),
            "encoding keeps the octets of the parts");
    if (!hasSmil) {
        require(again.present().isOk(), "generated slides are read back");
        require(again.slides().getTotalSlidesNum() == message.slides().getTotalSlidesNum(),
                "the number of slides read back is the number generated");
    }
    return 0;
}
