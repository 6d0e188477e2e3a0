/*
 * Reads and writes one multipart entry. The cursor counts every octet read, so a wrong length
 * misplaces the data that follows but never causes a read out of bounds. Content type and headers
 * are written to an array of fixed size first, because their lengths precede them.
 */
#include "wire/multipart_entry.h"

#include "multipart/body_part.h"
#include "multipart/multipart_result.h"
#include "platform/debug_log.h"
#include "platform/mime_codes.h"
#include "wire/append.h"
#include "wire/linear_buffer.h"
#include "wire/octets.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"
#include "wire/wire_text.h"

#include <QtEndian>

#include <array>
#include <tuple>

using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

namespace EntryOctet {

// Parameters of the content type
constexpr unsigned char Charset = 0x81;
constexpr unsigned char Name = 0x85;

// Headers
constexpr unsigned char ContentLocation = 0x8E;
constexpr unsigned char ContentId = 0xC0;

// Well-known media codes without their high bit
constexpr unsigned char TextPlain = 0x03;
constexpr unsigned char XhtmlXml = 0x45;

} // namespace EntryOctet

constexpr unsigned char FirstTextOctet = 0x20; // smaller octets begin a value-length
constexpr int LongestLocation = 1024; // octets without quote and terminator

constexpr QByteArrayView SmilType("application/smil");

// A name that begins like this loses its first and last character. Kept: presentations of stored
// messages refer to such parts by the shortened name.
constexpr QLatin1String StrayPrefix(")&&locStr.endsWith(");

class EntryReader
{
public:
    EntryReader(LinearBuffer *buffer, Part *part) : m_buffer(buffer), m_part(part) { }

    // Each returns false when the data ran out or a length is impossible.
    [[nodiscard]] bool readEntry();

private:
    [[nodiscard]] bool readLength(int *length);
    [[nodiscard]] bool readContentType();
    void readMediaText();
    [[nodiscard]] bool readParameters(int count);
    [[nodiscard]] bool readNameParameter();
    void readCharsetParameter();
    [[nodiscard]] bool readHeadersUpTo(qint64 end);
    [[nodiscard]] bool readContentLocation();
    void setLocation(QByteArrayView utf8);
    [[nodiscard]] bool readContentId();
    [[nodiscard]] bool readData(int length);
    [[nodiscard]] bool storeUcs2AsUtf8(QByteArrayView data);

    void setMediaCode(unsigned char octet);
    void setMediaText(const QString &text);

    LinearBuffer *m_buffer;
    Part *m_part;
    int m_charset = Charset::Utf8;
    unsigned char m_mediaCode = 0;
};

// entry ::= uintvar uintvar content-type header * octet *
// The first uintvar counts the octets of content type and headers, the second those of the data.
bool EntryReader::readEntry()
{
    int headersLength = 0;
    int dataLength = 0;
    if (!readLength(&headersLength) || !readLength(&dataLength))
        return false;
    const qint64 start = m_buffer->getPosition();
    if (headersLength > m_buffer->getSize() || dataLength > m_buffer->getSize())
        return false;
    return readContentType() && readHeadersUpTo(start + headersLength) && readData(dataLength);
}

bool EntryReader::readLength(int *length)
{
    return UIntBinary::readFrom(m_buffer, length) == WireResult::Read && *length >= 0;
}

// content-type ::= octet >= 80 | text | value-length (octet >= 80 | text) parameter *
bool EntryReader::readContentType()
{
    unsigned char first = 0;
    if (!m_buffer->readByte(&first))
        return false;
    if (first >= WireOctet::HighBit) {
        setMediaCode(first);
        return true;
    }
    m_buffer->rewind(1);
    if (first >= FirstTextOctet) {
        readMediaText();
        return true;
    }

    int length = 0;
    unsigned char media = 0;
    if (ValueLengthBinary::readFrom(m_buffer, &length) != WireResult::Read || length < 0
        || !m_buffer->readByte(&media))
        return false;
    if (media >= WireOctet::HighBit) {
        setMediaCode(media);
        return readParameters(length - 1);
    }
    m_buffer->rewind(1);
    const int textStart = m_buffer->getPosition();
    readMediaText();
    return readParameters(length - (m_buffer->getPosition() - textStart));
}

// The caller has checked that there is a first octet.
void EntryReader::readMediaText()
{
    const auto octets = WireText::read(m_buffer);
    if (octets == SmilType) { // the fast path: nearly every message has one
        m_part->setContentType(QStringLiteral("application"));
        m_part->setContentSubType(QStringLiteral("smil"));
        return;
    }
    setMediaText(QString::fromLatin1(octets.value_or(QByteArrayView())));
}

void EntryReader::setMediaCode(unsigned char octet)
{
    m_mediaCode = octet & ~WireOctet::HighBit;
    QString type;
    QString subtype;
    MMS_UTIL_Common::mimeTypeGetName(m_mediaCode, type, subtype);
    m_part->setContentType(type);
    m_part->setContentSubType(subtype);
}

void EntryReader::setMediaText(const QString &text)
{
    QString format = text.left(text.indexOf(QLatin1Char(';')));
    if (format.toLower() == QLatin1String("text/x-imelody"))
        format = QStringLiteral("audio/imelody");
    m_part->setContentType(Part::getTypePartFromFormat(format));
    m_part->setContentSubType(Part::getSubTypePartFromFormat(format));
}

// parameter ::= 81 integer, the charset | 85 text, the name | octet
bool EntryReader::readParameters(int count)
{
    const int start = m_buffer->getPosition();
    while (m_buffer->getPosition() - start < count) {
        unsigned char parameter = 0;
        if (!m_buffer->readByte(&parameter))
            return false;
        if (parameter == EntryOctet::Charset)
            readCharsetParameter();
        else if (parameter == EntryOctet::Name && !readNameParameter())
            return false;
    }
    return true;
}

void EntryReader::readCharsetParameter()
{
    std::ignore = CharsetBinary::readFrom(m_buffer, &m_charset); // the next read reports the end
    m_part->setCharset(m_charset == Charset::Ucs2 ? QStringLiteral("UCS2")
                                                  : QStringLiteral("UTF8"));
}

bool EntryReader::readNameParameter()
{
    QString name;
    if (PlainTextBinary::readFrom(m_buffer, &name) != WireResult::Read)
        return false;
    m_part->setContentLocation(name.startsWith(StrayPrefix) ? name.sliced(1).chopped(1) : name);
    return true;
}

// header ::= 8E [7F] octet * 00, the location | C0 ["] text, the Content-ID | octet
bool EntryReader::readHeadersUpTo(qint64 end)
{
    while (m_buffer->getPosition() < end) {
        unsigned char header = 0;
        if (!m_buffer->readByte(&header))
            return false;
        if (header == EntryOctet::ContentLocation && !readContentLocation())
            return false;
        if (header == EntryOctet::ContentId && !readContentId())
            return false;
    }
    return true;
}

bool EntryReader::readContentLocation()
{
    unsigned char octet = 0;
    if (!m_buffer->readByte(&octet))
        return false;
    if (octet == WireText::Quote && !m_buffer->readByte(&octet))
        return false;
    std::array<char, LongestLocation> location;
    size_t length = 0;
    while (octet != 0) {
        if (length == location.size())
            return false;
        location[length++] = static_cast<char>(octet);
        if (!m_buffer->readByte(&octet))
            return false;
    }
    setLocation(QByteArrayView(location.data(), qsizetype(length)));
    return true;
}

// Fast path: most senders give a part the same name twice.
void EntryReader::setLocation(QByteArrayView utf8)
{
    const bool isKnown = !utf8.isEmpty() && WireText::isAscii(utf8)
        && m_part->getContentLocation() == QLatin1StringView(utf8);
    if (!isKnown)
        m_part->setContentLocation(QString::fromUtf8(utf8));
}

bool EntryReader::readContentId()
{
    unsigned char quote = 0;
    if (!m_buffer->readByte(&quote))
        return false;
    if (quote != '"')
        m_buffer->rewind(1);
    QString id;
    if (PlainTextBinary::readFrom(m_buffer, &id) != WireResult::Read)
        return false;
    m_part->setContentID(id);
    return true;
}

bool EntryReader::readData(int length)
{
    const auto view = m_buffer->readView(length);
    if (!view)
        return false;
    QByteArrayView data = *view;
    if (m_charset == Charset::Ucs2)
        return storeUcs2AsUtf8(data);
    // Phones append a zero that does not belong to the text.
    if (m_mediaCode == EntryOctet::TextPlain && data.size() > 1 && data.back() == '\0')
        data.chop(1);
    return m_part->setBodyData(data.data(), int(data.size())) == MultipartResult::Ok;
}

// The charset's name stays "UCS2" although the octets become UTF-8. Kept: the viewer decodes the
// octets as UTF-8 and shows the charset that the sender declared.
bool EntryReader::storeUcs2AsUtf8(QByteArrayView data)
{
    MMS_UTIL_Tool::logOut(data.data(), int(data.size()));
    if (data.startsWith("\xFF\xFE"))
        data = data.sliced(2);
    QString text(data.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(data.data(), text.size(), text.data());
    const QByteArray octets = text.toUtf8();
    MMS_UTIL_Tool::logOut(octets.constData(), int(octets.size()));
    return m_part->setBodyData(octets.constData(), int(octets.size())) == MultipartResult::Ok;
}

constexpr unsigned char FirstCodeWrittenAsText = 0x3F;
void writeMediaText(LinearBuffer *buffer, const QString &format)
{
    // Phones know the melody format only by its older name.
    const bool melody = format.toLower() == QLatin1String("audio/imelody");
    WireAppend::value<PlainTextBinary>(buffer, melody ? QStringLiteral("text/x-iMelody") : format);
}

void writeContentType(LinearBuffer *buffer, const Part &part)
{
    const unsigned char code =
        MMS_UTIL_Common::mimeTypeGetValue(part.getContentType(), part.getSubType());
    if (code < FirstCodeWrittenAsText)
        WireAppend::value<IntegerBinary>(buffer, code);
    else
        writeMediaText(buffer, part.getMimeFormat());

    if (const QString location = part.getContentLocation(); !location.isEmpty()) {
        WireAppend::octet(buffer, EntryOctet::Name);
        WireAppend::value<PlainTextBinary>(buffer, location);
    }
    if (code == EntryOctet::TextPlain || code == EntryOctet::XhtmlXml) {
        // Any named charset is declared as US-ASCII. Kept: the composer names a charset only for
        // ASCII texts.
        WireAppend::octet(buffer, EntryOctet::Charset);
        WireAppend::value<CharsetBinary>(
            buffer, part.getCharset().isEmpty() ? Charset::Utf8 : Charset::UsAscii);
    }
}

void writeHeaders(LinearBuffer *buffer, const Part &part)
{
    if (const QString id = part.getContentID(); !id.isEmpty()) {
        WireAppend::octet(buffer, EntryOctet::ContentId);
        if (id.startsWith(QLatin1Char('<')))
            WireAppend::octet(buffer, '"');
        WireAppend::value<PlainTextBinary>(buffer, id);
    }
    if (const QString location = part.getContentLocation(); !location.isEmpty()) {
        WireAppend::octet(buffer, EntryOctet::ContentLocation);
        WireAppend::value<PlainTextBinary>(buffer, location);
    }
}

} // namespace

unsigned char Multipart_Entry::readFrom(LinearBuffer *buffer, Part *part)
{
    return EntryReader(buffer, part).readEntry() ? WireResult::Read : WireResult::OutOfData;
}

unsigned char Multipart_Entry::writeTo(LinearBuffer *buffer, const Part &part)
{
    std::array<unsigned char, Multipart_Entry::LongestHeaders> octets;
    LinearBuffer scratch(octets.data(), int(octets.size()));
    writeContentType(&scratch, part);
    const int contentTypeLength = scratch.getPosition();
    writeHeaders(&scratch, part);

    const QByteArray &data = part.getBodyData();
    const int headersLength = ValueLengthBinary::sizeOf(contentTypeLength) + scratch.getPosition();
    WireAppend::value<UIntBinary>(buffer, headersLength);
    WireAppend::value<UIntBinary>(buffer, int(data.size()));
    const unsigned char result = ValueLengthBinary::writeTo(buffer, contentTypeLength);
    WireAppend::octets(buffer, QByteArrayView(octets.data(), scratch.getPosition()));
    const auto *body = reinterpret_cast<const unsigned char *>(data.constData());
    return buffer->appendData(body, int(data.size())) ? result : WireResult::CannotWrite;
}

int Multipart_Entry::sizeOf(const Part &)
{
    return 0;
}
