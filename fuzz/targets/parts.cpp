/*
 * The parts of a body from outside: they lie in the body in order, and after the step before the
 * codec the codec reads of each well-formed part what its headers say.
 */
#include "support/pdu.h"

#include "readable/readable_body.h"
#include "scan/part_content_type.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

constexpr int Ucs2 = 1000;
constexpr int TextPlain = 3;
constexpr qsizetype LongestLocation = 1024;

bool hasLength(QByteArrayView value)
{
    return value.front() > 0 && value.front() < 32;
}

// A text with code as the codec takes it, without quote and terminator.
QByteArrayView rawText(QByteArrayView value)
{
    return value.sliced(value.front() == 0x7F ? 1 : 0).chopped(1);
}

// The octets after a value-length.
QByteArrayView withoutLength(QByteArrayView octets)
{
    if (!hasLength(octets))
        return octets;
    qsizetype size = 1;
    if (octets.front() == 31) {
        while (octets[size] & 0x80)
            ++size;
        ++size;
    }
    return octets.sliced(size);
}

struct ScannedBody
{
    explicit ScannedBody(const QByteArray &body) : scanner(body)
    {
        QvlScannedPart part;
        while (scanner.next(&part))
            parts.push_back(part);
    }

    QvlPartScanner scanner;
    std::vector<QvlScannedPart> parts;
};

std::vector<QvlScannedHeader> headersOf(const QvlScannedPart &part, bool *areWhole)
{
    std::vector<QvlScannedHeader> headers;
    QvlPartHeaderScanner scanner(part.headers);
    QvlScannedHeader header;
    qsizetype end = 0;
    while (scanner.next(&header)) {
        require(header.offset >= end, "a header begins after the one before");
        require(header.octets.data() == part.headers.data() + header.offset, "a header is there");
        require(header.octets.size() >= 2, "a header has a name and a value");
        end = header.offset + header.octets.size();
        require(header.value.data() + header.value.size() == part.headers.data() + end,
                "a value ends with its header");
        header.text();
        headers.push_back(header);
    }
    require(scanner.position() >= end && scanner.position() <= part.headers.size(),
            "a scan ends in the headers");
    require(scanner.result() != QvlPartHeaderScanner::Scanning, "a scan ends");
    *areWhole = scanner.result() == QvlPartHeaderScanner::HeadersRead;
    return headers;
}

void requireTiling(const QByteArray &body, const ScannedBody &scan)
{
    require(scan.scanner.result() != QvlPartScanner::Scanning, "a scan ends");
    qsizetype end = scan.scanner.countSize();
    for (const QvlScannedPart &part : scan.parts) {
        require(part.offset == end, "a part begins where the one before ends");
        require(part.octets.data() == body.constData() + end, "a part is in the body");
        end += part.octets.size();
        require(end <= body.size(), "a part ends in the body");
        require(part.data.data() + part.data.size() == body.constData() + end,
                "data ends with its part");
        require(part.headers.data() + part.headers.size() == part.data.data(),
                "data follows the headers");
        require(part.contentTypeOctets.data() + part.contentTypeOctets.size()
                    == part.headers.data(),
                "headers follow the content type");
        part.fileName();
        part.transferEncoding();
    }
    require(scan.scanner.position() == end, "the scan ends after the last part");
}

// What a part says that the codec knows.
struct Facts
{
    explicit Facts(const QvlScannedPart &part);

    bool isWellFormed = false;
    bool isPlain = true; // it has only what the codec knows, in the codec's forms
    QvlContentType type;
    int charset = 0;
    bool hasName = false;
    bool hasLocation = false;
    bool hasId = false;
    std::optional<QString> location; // when it came in the codec's form
    std::optional<QString> id; // when it came in the codec's form

private:
    void addParameter(const QvlScannedParameter &parameter);
    void addHeader(const QvlScannedHeader &header);
};

Facts::Facts(const QvlScannedPart &part)
{
    bool areWhole = false;
    const std::vector<QvlScannedHeader> headers = headersOf(part, &areWhole);
    const auto read = part.contentType();
    isWellFormed = areWhole && read && read->isComplete;
    if (!isWellFormed)
        return;
    type = *read;
    const QByteArrayView media = withoutLength(part.contentTypeOctets);
    isPlain = !hasLength(media);
    const qsizetype mediaSize = type.code < 0 ? media.indexOf('\0') : 1; // at least
    for (const QvlScannedParameter &parameter : type.parameters) {
        if (parameter.octets.data() >= media.data() + mediaSize)
            addParameter(parameter);
    }
    qsizetype size = 0;
    for (const QvlScannedHeader &header : headers) {
        addHeader(header);
        size += header.octets.size();
    }
    isPlain = isPlain && size == part.headers.size();
}

// The codec passes over all others.
bool hasAny(QByteArrayView octets, QByteArrayView wanted)
{
    return std::any_of(wanted.begin(), wanted.end(),
                       [octets](char octet) { return octets.contains(octet); });
}

void Facts::addParameter(const QvlScannedParameter &parameter)
{
    if (!hasAny(parameter.octets, "\x81\x85"))
        return;
    const QByteArrayView name = parameter.name ? parameter.name : parameter.letters;
    if (name.compare("charset", Qt::CaseInsensitive) == 0) {
        const int number = charsetOf(parameter);
        if (number != 0 || (parameter.number == 0 && parameter.code == 1))
            charset = number;
        isPlain = isPlain && parameter.code == 1 && parameter.number > 0 && number != 0;
    } else if (name.compare("name", Qt::CaseInsensitive) == 0) {
        hasName = true;
        isPlain = isPlain && parameter.code == 5 && !hasLength(parameter.value);
    } else {
        isPlain = false;
    }
}

void Facts::addHeader(const QvlScannedHeader &header)
{
    if (!hasAny(header.octets, "\x8E\xC0")) {
        isPlain = isPlain && header.page != 0x8E && header.page != 0xC0;
        return;
    }
    const bool isForeign = header.page == 0x8E || header.page == 0xC0;
    const bool isCoded = header.code >= 0 && !hasLength(header.value);
    if (header.isNamed("Content-Location")) {
        hasLocation = true;
        location.reset();
        isPlain = isPlain && isCoded && rawText(header.value).size() <= LongestLocation;
        if (isCoded && rawText(header.value).size() <= LongestLocation)
            location = QString::fromUtf8(rawText(header.value));
    } else if (header.isNamed("Content-ID")) {
        hasId = true;
        id.reset();
        isPlain = isPlain && isCoded;
        if (isCoded) {
            const bool isQuoted = header.value.front() == '"';
            const QByteArrayView text = header.value.sliced(isQuoted ? 1 : 0);
            id = QString::fromLatin1(rawText(text));
        }
    } else {
        isPlain = false;
    }
    isPlain = isPlain && !isForeign;
}

void requireType(const Facts &facts, const Part &part)
{
    QString type;
    QString subtype;
    if (facts.type.code >= 0 && facts.type.code < 128) {
        MMS_UTIL_Common::mimeTypeGetName(static_cast<unsigned char>(facts.type.code), type,
                                         subtype);
        require(part.getContentType() == type && part.getSubType() == subtype,
                "the codec reads the media code");
    } else if (facts.type.code >= 0) {
        require(part.getMimeFormat() == QLatin1String("application/octet-stream"),
                "the codec reads a type for a code that it does not know");
    }
}

void requireData(const Facts &facts, const QvlScannedPart &scanned, const Part &part)
{
    if (facts.charset == Ucs2)
        return;
    QByteArrayView data = scanned.data;
    if (facts.type.code == TextPlain && data.size() > 1 && data.back() == 0)
        data.chop(1);
    require(part.getBodyData() == data, "the codec reads the data");
}

void requireNames(const Facts &facts, const Part &part)
{
    if (facts.location)
        require(part.getContentLocation() == *facts.location, "the codec reads the location");
    if (!facts.hasLocation && !facts.hasName)
        require(part.getContentLocation().isEmpty(), "the codec finds no location");
    if (facts.id)
        require(part.getContentID() == *facts.id, "the codec reads the Content-ID");
    if (!facts.hasId)
        require(part.getContentID().isEmpty(), "the codec finds no Content-ID");
}

void requireDecodable(const QByteArray &body, const std::vector<QvlScannedPart> &scanned,
                      const std::vector<Facts> &facts)
{
    MMS_COMP_SMILMultipart multipart;
    MMS_UA_MultiPart_CODEC::decodeMultipart(
        false, reinterpret_cast<const unsigned char *>(body.constData()), unsigned(body.size()),
        &multipart);
    const std::size_t count = std::min<std::size_t>(facts.size(), 255);
    require(std::size_t(multipart.getPartCount()) >= count, "the codec reads as many parts");
    for (std::size_t i = 0; i < count; ++i) {
        const Part &part = *multipart.getBodypartByIndex(int(i));
        requireType(facts[i], part);
        requireData(facts[i], scanned[i], part);
        requireNames(facts[i], part);
    }
}

void requireChangesInOrder(const QByteArray &body, const std::vector<QvlChange> &changes)
{
    qsizetype end = 0;
    for (const QvlChange &change : changes) {
        require(change.offset >= end, "changes are in order");
        require(change.octets.data() == body.constData() + change.offset, "a change is there");
        end = change.offset + change.octets.size();
    }
    require(end <= body.size(), "changes lie in the body");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray body(reinterpret_cast<const char *>(data), qsizetype(size));
    qvlReadContentType(body);
    const ScannedBody scan(body);
    requireTiling(body, scan);

    std::vector<Facts> facts; // of the parts before the first malformed one
    bool isPlain = scan.scanner.countSize() <= 1;
    for (const QvlScannedPart &part : scan.parts) {
        Facts next(part);
        if (!next.isWellFormed)
            break;
        isPlain = isPlain && next.isPlain;
        facts.push_back(std::move(next));
    }
    const ReadableBody readable = readableBody(body, 0);
    requireChangesInOrder(body, readable.changes);
    require(readable.body.has_value() == !readable.changes.empty(), "a changed body has changes");
    require(!isPlain || !readable.body, "a body that the codec knows stays");
    requireDecodable(readable.body.value_or(body), scan.parts, facts);
    // From 128 on the count is ambiguous.
    const bool isShort = readable.body && !(readable.body->front() & 0x80);
    require(!isShort || !readableBody(*readable.body, 0).body, "the result is readable");
    return 0;
}
