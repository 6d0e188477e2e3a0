/*
 * Reading of one multipart entry. Everything is counted by the cursor, so a length that is wrong
 * misplaces what follows but never leads outside the buffer.
 */
#include "wire/multipart_codec.h"

#include "multipart/body_part.h"
#include "multipart/multipart_result.h"
#include "platform/debug_log.h"
#include "platform/mime_codes.h"
#include "wire/linear_buffer.h"
#include "wire/multipart_entry_octets.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"
#include "wire/wire_text.h"

#include <QtEndian>

#include <array>
#include <tuple>

using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

constexpr unsigned char FirstTextOctet = 0x20; // a value-length stands below it
constexpr int CharsetUtf8 = 106;
constexpr int CharsetUcs2 = 1000;
constexpr int LongestLocation = 1024; // octets without quote and terminator

constexpr QByteArrayView SmilType("application/smil");

// A name that begins so loses its first and last character. Kept: presentations of stored messages
// refer to such parts by what is left.
constexpr QLatin1String StrayPrefix(")&&locStr.endsWith(");

class EntryReader
{
public:
    EntryReader(LinearBuffer *buffer, Part *part) : m_buffer(buffer), m_part(part) { }

    // Each returns false when the data ran out or a length cannot be right.
    bool readEntry();

private:
    bool readLength(int *length);
    bool readContentType();
    void readMediaText();
    bool readParameters(int count);
    bool readNameParameter();
    void readCharsetParameter();
    bool readHeadersUpTo(qint64 end);
    bool readContentLocation();
    void setLocation(QByteArrayView utf8);
    bool readContentId();
    bool readData(int length);
    bool storeUcs2AsUtf8(QByteArrayView data);

    void setMediaCode(unsigned char octet);
    void setMediaText(const QString &text);

    LinearBuffer *m_buffer;
    Part *m_part;
    int m_charset = CharsetUtf8;
    unsigned char m_mediaCode = 0;
};

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

bool EntryReader::readContentType()
{
    unsigned char first = 0;
    if (!m_buffer->readByte(&first))
        return false;
    if (first >= EntryOctet::HighBit) {
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
    if (media >= EntryOctet::HighBit) {
        setMediaCode(media);
        return readParameters(length - 1);
    }
    m_buffer->rewind(1);
    const int textStart = m_buffer->getPosition();
    readMediaText();
    return readParameters(length - (m_buffer->getPosition() - textStart));
}

// Its first octet is known to be there.
void EntryReader::readMediaText()
{
    const auto octets = WireText::read(m_buffer);
    if (octets == SmilType) { // which nearly every message has
        m_part->setContentType(QStringLiteral("application"));
        m_part->setContentSubType(QStringLiteral("smil"));
        return;
    }
    setMediaText(QString::fromLatin1(octets.value_or(QByteArrayView())));
}

void EntryReader::setMediaCode(unsigned char octet)
{
    m_mediaCode = octet & ~EntryOctet::HighBit;
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
    m_part->setCharset(m_charset == CharsetUcs2 ? QStringLiteral("UCS2") : QStringLiteral("UTF8"));
}

bool EntryReader::readNameParameter()
{
    QString name;
    if (PlainTextBinary::readFrom(m_buffer, &name) != WireResult::Read)
        return false;
    m_part->setContentLocation(name.startsWith(StrayPrefix) ? name.sliced(1).chopped(1) : name);
    return true;
}

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

// Most senders give a part the same name twice.
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
    if (m_charset == CharsetUcs2)
        return storeUcs2AsUtf8(data);
    // Phones end a text with a zero that is none of its characters.
    if (m_mediaCode == EntryOctet::TextPlain && data.size() > 1 && data.back() == '\0')
        data.chop(1);
    return m_part->setBodyData(data.data(), int(data.size())) == MultipartResult::Ok;
}

// The charset's name stays "UCS2" although the octets are UTF-8 from here on. Kept: the viewer goes
// by the octets, and the name tells it what the sender wrote.
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

} // namespace

unsigned char Multipart_Entry::readFrom(LinearBuffer *buffer, Part *part)
{
    return EntryReader(buffer, part).readEntry() ? WireResult::Read : WireResult::OutOfData;
}
