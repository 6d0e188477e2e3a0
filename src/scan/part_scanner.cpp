#include "scan/part_scanner.h"

#include "base/code_meanings.h"
#include "base/no_memory.h"
#include "scan/part_content_type.h"
#include "scan/wsp_texts.h"
#include "scan/wsp_values.h"
#include "wire/octets.h"
#include "wire/read.h"
#include "wire/wire_text.h"

#include <iterator>
#include <tuple>

using namespace WireOctet;

namespace {

using HeaderResult = QvlPartHeaderScanner::Result;
using PartResult = QvlPartScanner::Result;

constexpr CodeMeaning headerMeanings[]{
    {HeaderResult::Scanning, "the scan has not ended"},
    {HeaderResult::HeadersRead, "the octets end after a header"},
    {HeaderResult::NoHeader, "an octet begins no header"},
    {HeaderResult::NoPage, "the octets end before the number of a page"},
    {HeaderResult::NoValue, "the octets end before a value"},
    {HeaderResult::NameWithoutEnd, "the octets end in a name"},
    {HeaderResult::ValueWithoutEnd, "a value is longer than the octets"},
};

constexpr CodeMeaning partMeanings[]{
    {PartResult::Scanning, "the scan has not ended"},
    {PartResult::PartsRead, "all parts were read"},
    {PartResult::NoCount, "the data ends before the count of the parts"},
    {PartResult::PartMissing, "the data ends before all counted parts"},
    {PartResult::LengthWithoutEnd, "the data ends in a length"},
    {PartResult::HeadersTooLong, "the headers of a part are longer than the data"},
    {PartResult::DataTooLong, "a part is longer than the data"},
};

// WAP-230-WSP, table 39. Later versions gave some headers a second code.
constexpr const char *headerNames[]{
    "Accept",
    "Accept-Charset",
    "Accept-Encoding",
    "Accept-Language",
    "Accept-Ranges",
    "Age",
    "Allow",
    "Authorization",
    "Cache-Control",
    "Connection",
    "Content-Base",
    "Content-Encoding",
    "Content-Language",
    "Content-Length",
    "Content-Location",
    "Content-MD5",
    "Content-Range",
    "Content-Type",
    "Date",
    "ETag",
    "Expires",
    "From",
    "Host",
    "If-Modified-Since",
    "If-Match",
    "If-None-Match",
    "If-Range",
    "If-Unmodified-Since",
    "Location",
    "Last-Modified",
    "Max-Forwards",
    "Pragma",
    "Proxy-Authenticate",
    "Proxy-Authorization",
    "Public",
    "Range",
    "Referer",
    "Retry-After",
    "Server",
    "Transfer-Encoding",
    "Upgrade",
    "User-Agent",
    "Vary",
    "Via",
    "Warning",
    "WWW-Authenticate",
    "Content-Disposition",
    "X-Wap-Application-Id",
    "X-Wap-Content-URI",
    "X-Wap-Initiator-URI",
    "Accept-Application",
    "Bearer-Indication",
    "Push-Flag",
    "Profile",
    "Profile-Diff",
    "Profile-Warning",
    "Expect",
    "TE",
    "Trailer",
    "Accept-Charset",
    "Accept-Encoding",
    "Cache-Control",
    "Content-Range",
    "X-Wap-Tod",
    "Content-ID",
    "Set-Cookie",
    "Cookie",
    "Encoding-Version",
    "Profile-Warning",
    "Content-Disposition",
    "X-WAP-Security",
    "Cache-Control",
};
static_assert(std::size(headerNames) == 0x48);

constexpr int DefaultPage = 1;
constexpr unsigned char ShiftDelimiter = 0x7F; // the number of a page follows
constexpr QByteArrayView ContentLocation("Content-Location");
constexpr QByteArrayView ContentId("Content-ID");

// Dispositions that have a code
constexpr CodeMeaning dispositions[]{
    {0, "form-data"},
    {1, "attachment"},
    {2, "inline"},
};

const char *nameOf(int code, int page)
{
    const bool isAssigned = page == DefaultPage && code < int(std::size(headerNames));
    return isAssigned ? headerNames[code] : nullptr;
}

// Headers whose value may be a text without the quote that it needs.
bool mayLackQuote(const QvlScannedHeader &header)
{
    return header.name && (header.isNamed(ContentLocation) || header.isNamed(ContentId));
}

// A walk over parts: how many are whole, and where they end.
struct Walk
{
    int whole = 0;
    int end = 0;
    bool isExact = false; // all counted parts are whole and end with the data
};

struct Lengths
{
    int headers = 0;
    int data = 0;
};

PartResult readLengths(LinearBuffer *buffer, Lengths *lengths)
{
    if (!buffer->hasMore())
        return PartResult::PartMissing;
    const auto headers = WireRead::uintvar(buffer);
    const auto data = headers ? WireRead::uintvar(buffer) : std::nullopt;
    if (!data)
        return PartResult::LengthWithoutEnd;
    const int left = buffer->getSize() - buffer->getPosition();
    if (*headers > left)
        return PartResult::HeadersTooLong;
    if (*data > left - *headers)
        return PartResult::DataTooLong;
    *lengths = {*headers, *data};
    return PartResult::Scanning;
}

// @p buffer begins after the count.
Walk walkOver(LinearBuffer buffer, int count)
{
    Walk walk;
    Lengths lengths;
    while (walk.whole < count && readLengths(&buffer, &lengths) == PartResult::Scanning) {
        std::ignore = buffer.readView(lengths.headers + lengths.data); // it is there
        ++walk.whole;
    }
    walk.isExact = walk.whole == count && !buffer.hasMore();
    return walk;
}

// The count of the parts, with @p buffer left after it; nothing for an empty body.
// count ::= uintvar | octet
std::optional<int> readCount(LinearBuffer *buffer)
{
    LinearBuffer afterOctet = *buffer;
    const auto octet = WireRead::octet(&afterOctet);
    const auto uintvar = WireRead::uintvar(buffer);
    if (!octet || !hasHighBit(*octet))
        return uintvar;
    if (uintvar) {
        const Walk longWalk = walkOver(*buffer, *uintvar);
        const Walk shortWalk = walkOver(afterOctet, *octet);
        const bool isShort = shortWalk.isExact || shortWalk.whole > longWalk.whole;
        if (longWalk.isExact || !isShort)
            return uintvar;
    }
    *buffer = afterOctet;
    return *octet;
}

// The last header of @p part with @p name.
std::optional<QvlScannedHeader> findHeader(const QvlScannedPart &part, QByteArrayView name)
{
    std::optional<QvlScannedHeader> found;
    QvlPartHeaderScanner scanner(part.headers);
    QvlScannedHeader header;
    while (scanner.next(&header)) {
        if (header.isNamed(name))
            found = header;
    }
    return found;
}

QString headerText(const QvlScannedPart &part, QByteArrayView name)
{
    const auto header = findHeader(part, name);
    return header ? header->text() : QString();
}

// A disposition has the form of a content type, with codes of its own.
std::optional<QvlContentType> dispositionOf(const QvlScannedPart &part)
{
    const auto header = findHeader(part, "Content-Disposition");
    auto disposition = header ? readPartContentType(header->value) : std::nullopt;
    if (disposition && disposition->code >= 0) {
        const CodeMeaning *row = rowOf(dispositions, disposition->code, &CodeMeaning::code);
        disposition->mediaType = QString::fromLatin1(row ? row->text : "");
    }
    return disposition;
}

} // namespace

bool QvlScannedHeader::isNamed(QByteArrayView wanted) const
{
    return wanted.compare(name ? QByteArrayView(name) : letters, Qt::CaseInsensitive) == 0;
}

QString QvlScannedHeader::text() const
{
    const bool isText = !value.isEmpty() && beginsText(static_cast<unsigned char>(value.front()));
    if (!isText && letters.isEmpty() && !mayLackQuote(*this))
        return {};
    return unlessOutOfMemory(QString(), [this] {
        return isNamed(ContentId) ? WspTexts::decodeQuoted(value) : WspTexts::decode(value);
    });
}

qint64 QvlScannedHeader::number() const
{
    LinearBuffer buffer = WireRead::over(value);
    qint64 number = -1;
    return letters.isEmpty() && WspValues::readInteger(&buffer, &number) && !buffer.hasMore()
        ? number
        : -1;
}

QvlPartHeaderScanner::QvlPartHeaderScanner(QByteArrayView headers)
    : m_headers(headers), m_buffer(WireRead::over(headers))
{
}

// headers ::= ([7F page | octet 01 to 1F] (octet >= 80 | text) value) *
bool QvlPartHeaderScanner::next(QvlScannedHeader *header)
{
    if (m_result != Scanning)
        return false;
    m_result = skipPages();
    if (m_result != Scanning)
        return false;
    const int start = m_buffer.getPosition();
    QvlScannedHeader found;
    m_result = readName(&found);
    if (m_result != Scanning)
        return false;
    const int valueStart = m_buffer.getPosition();
    if (!skipValue(found)) {
        m_result = valueStart == m_headers.size() ? NoValue : ValueWithoutEnd;
        return false;
    }
    const int end = m_buffer.getPosition();
    found.offset = start;
    found.octets = m_headers.sliced(start, end - start);
    found.value = m_headers.sliced(valueStart, end - valueStart);
    m_position = end;
    *header = found;
    return true;
}

HeaderResult QvlPartHeaderScanner::skipPages()
{
    while (true) {
        m_position = m_buffer.getPosition();
        const auto first = WireRead::octet(&m_buffer);
        if (!first)
            return HeadersRead;
        if (*first == 0)
            return NoHeader;
        if (*first == ShiftDelimiter) {
            const auto page = WireRead::octet(&m_buffer);
            if (!page)
                return NoPage;
            m_page = *page;
        } else if (*first <= LengthFollows) {
            m_page = *first;
        } else {
            m_buffer.rewind(1);
            return Scanning;
        }
    }
}

HeaderResult QvlPartHeaderScanner::readName(QvlScannedHeader *header)
{
    header->page = m_page;
    const auto first = WireRead::octet(&m_buffer);
    if (hasHighBit(*first)) {
        header->code = withoutHighBit(*first);
        header->name = nameOf(header->code, m_page);
        return Scanning;
    }
    m_buffer.rewind(1);
    const auto letters = WireRead::text(&m_buffer);
    if (!letters)
        return NameWithoutEnd;
    header->letters = *letters;
    return Scanning;
}

bool QvlPartHeaderScanner::skipValue(const QvlScannedHeader &header)
{
    const auto first = WireRead::peek(&m_buffer);
    const bool lacksQuote = first && hasHighBit(*first) && mayLackQuote(header);
    if (lacksQuote || !header.letters.isEmpty())
        return WireRead::text(&m_buffer).has_value();
    return WspValues::skip(&m_buffer);
}

const char *QvlPartHeaderScanner::meaning() const
{
    return meaningOf(headerMeanings, m_result);
}

std::optional<QvlContentType> QvlScannedPart::contentType() const
{
    return unlessOutOfMemory({}, [this] { return readPartContentType(contentTypeOctets); });
}

int QvlScannedPart::charset() const
{
    const auto type = contentType();
    return type ? type->charset() : 0;
}

QString QvlScannedPart::transferEncoding() const
{
    return unlessOutOfMemory(QString(), [this] {
        return headerText(*this, "Content-Transfer-Encoding").trimmed().toLower();
    });
}

QString QvlScannedPart::disposition() const
{
    return unlessOutOfMemory(QString(), [this] {
        const auto disposition = dispositionOf(*this);
        return disposition ? disposition->mediaType : QString();
    });
}

QString QvlScannedPart::fileName() const
{
    return unlessOutOfMemory(QString(), [this] {
        const auto disposition = dispositionOf(*this);
        const auto *name = disposition ? disposition->find("filename") : nullptr;
        if (name)
            return name->text;
        const auto type = contentType();
        return type ? type->name() : QString();
    });
}

QString QvlScannedPart::location() const
{
    return headerText(*this, ContentLocation);
}

QString QvlScannedPart::id() const
{
    return headerText(*this, ContentId);
}

QvlPartScanner::QvlPartScanner(QByteArrayView body) : m_body(body), m_buffer(WireRead::over(body))
{
    const auto count = readCount(&m_buffer);
    if (!count) {
        m_result = NoCount;
        return;
    }
    m_count = *count;
    m_countSize = m_buffer.getPosition();
    m_position = m_countSize;
}

bool QvlPartScanner::next(QvlScannedPart *part)
{
    if (m_result != Scanning)
        return false;
    m_result = m_index == m_count ? PartsRead : readPart(part);
    return m_result == Scanning;
}

// part ::= uintvar uintvar content-type header * octet *
// The first uintvar counts the octets of content type and headers, the second those of the data.
PartResult QvlPartScanner::readPart(QvlScannedPart *part)
{
    Lengths lengths;
    const PartResult result = readLengths(&m_buffer, &lengths);
    if (result != Scanning)
        return result;
    const int start = m_buffer.getPosition();
    const int end = start + lengths.headers + lengths.data;
    const QByteArrayView headers = m_body.sliced(start, lengths.headers);
    LinearBuffer type = WireRead::over(headers);
    const int typeSize = WspValues::skip(&type) ? type.getPosition() : lengths.headers;
    part->index = m_index++;
    part->offset = m_position;
    part->octets = m_body.sliced(m_position, end - m_position);
    part->contentTypeOctets = headers.first(typeSize);
    part->headers = headers.sliced(typeSize);
    part->data = m_body.sliced(start + lengths.headers, lengths.data);
    std::ignore = m_buffer.readView(end - start); // it is there
    m_position = end;
    return Scanning;
}

const char *QvlPartScanner::meaning() const
{
    return meaningOf(partMeanings, m_result);
}
