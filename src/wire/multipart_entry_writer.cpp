/*
 * Writing of one multipart entry. Content type and headers go through an array of fixed size first,
 * because their lengths come before them.
 */
#include "wire/multipart_codec.h"

#include "multipart/body_part.h"
#include "platform/mime_codes.h"
#include "wire/linear_buffer.h"
#include "wire/multipart_entry_octets.h"
#include "wire/multipart_writer.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"

#include <array>

using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

constexpr unsigned char FirstCodeWrittenAsText = 0x3F;
// The charsets UTF-8 and US-ASCII as short integers. A named charset is declared as US-ASCII
// whatever it is. Kept: the texts that the composer names a charset for are ASCII.
constexpr unsigned char Utf8 = 0xEA;
constexpr unsigned char UsAscii = 0x83;

void writeMediaText(LinearBuffer *buffer, const QString &format)
{
    // Phones know the melody format by its older name only.
    const bool melody = format.toLower() == QLatin1String("audio/imelody");
    PlainTextBinary::writeTo(buffer, melody ? QStringLiteral("text/x-iMelody") : format);
}

void writeContentType(LinearBuffer *buffer, const Part &part)
{
    const unsigned char code =
        MMS_UTIL_Common::mimeTypeGetValue(part.getContentType(), part.getSubType());
    if (code < FirstCodeWrittenAsText)
        IntegerBinary::writeTo(buffer, code);
    else
        writeMediaText(buffer, part.getMimeFormat());

    if (const QString location = part.getContentLocation(); !location.isEmpty()) {
        buffer->appendByte(EntryOctet::Name);
        PlainTextBinary::writeTo(buffer, location);
    }
    if (code == EntryOctet::TextPlain || code == EntryOctet::XhtmlXml) {
        buffer->appendByte(EntryOctet::Charset);
        buffer->appendByte(part.getCharset().isEmpty() ? Utf8 : UsAscii);
    }
}

void writeHeaders(LinearBuffer *buffer, const Part &part)
{
    if (const QString id = part.getContentID(); !id.isEmpty()) {
        buffer->appendByte(EntryOctet::ContentId);
        if (id.startsWith(QLatin1Char('<')))
            buffer->appendByte('"');
        PlainTextBinary::writeTo(buffer, id);
    }
    if (const QString location = part.getContentLocation(); !location.isEmpty()) {
        buffer->appendByte(EntryOctet::ContentLocation);
        PlainTextBinary::writeTo(buffer, location);
    }
}

} // namespace

unsigned char Multipart_Entry::writeTo(LinearBuffer *buffer, const Part &part)
{
    std::array<unsigned char, MultipartWriter::LongestEntryHeaders> octets;
    LinearBuffer scratch(octets.data(), int(octets.size()));
    writeContentType(&scratch, part);
    const int contentTypeLength = scratch.getPosition();
    writeHeaders(&scratch, part);

    const QByteArray &data = part.getBodyData();
    const int headersLength = ValueLengthBinary::sizeOf(contentTypeLength) + scratch.getPosition();
    UIntBinary::writeTo(buffer, headersLength);
    UIntBinary::writeTo(buffer, int(data.size()));
    const unsigned char result = ValueLengthBinary::writeTo(buffer, contentTypeLength);
    buffer->appendData(octets.data(), scratch.getPosition());
    const auto *body = reinterpret_cast<const unsigned char *>(data.constData());
    return buffer->appendData(body, int(data.size())) ? result : WireResult::CannotWrite;
}

int Multipart_Entry::sizeOf(const Part &)
{
    return 0;
}
