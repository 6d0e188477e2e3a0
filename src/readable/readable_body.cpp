#include "readable/readable_body.h"

#include "readable/append_octets.h"
#include "scan/part_content_type.h"
#include "scan/part_scanner.h"
#include "scan/wsp_values.h"
#include "wire/linear_buffer.h"
#include "wire/octets.h"
#include "wire/primitive_values.h"
#include "wire/read.h"
#include "wire/wire_text.h"

#include <algorithm>
#include <tuple>
#include <utility>

using namespace WireOctet;

namespace {

// What the codec recognizes

namespace ParameterCode {
constexpr int Charset = 0x01;
constexpr int Name = 0x05;
} // namespace ParameterCode

namespace HeaderCode {
constexpr int ContentLocation = 0x0E;
constexpr int ContentId = 0x40;
} // namespace HeaderCode

constexpr QByteArrayView ParameterOctets("\x81\x85"); // the two codes with their high bit
constexpr QByteArrayView HeaderOctets("\x8E\xC0"); // likewise
constexpr qsizetype LongestLocation = 1024; // octets without quote and terminator
constexpr int MostParts = 255;

constexpr int DefaultPage = 1;
constexpr unsigned char ShiftDelimiter = 0x7F; // the number of a page follows
constexpr QByteArrayView UnknownType("application/octet-stream");

namespace Reason {
constexpr char UnknownParameter[] = "octets of an unknown parameter look like a known one";
constexpr char UnknownHeader[] = "octets of an unknown header look like a known one";
constexpr char OtherPage[] = "headers of another page look like known ones";
constexpr char UnknownCharset[] = "the charset is unknown";
constexpr char OtherForm[] = "the codec does not read this form";
constexpr char Unreadable[] = "the value has no text";
constexpr char LongLocation[] = "the location has more than 1024 octets";
constexpr char LongMedia[] = "the media type is a long integer";
constexpr char LongCount[] = "the count takes several octets";
constexpr char TooMany[] = "the codec reads at most 255 parts";
} // namespace Reason

unsigned char firstOf(QByteArrayView octets)
{
    return octets.isEmpty() ? 0 : static_cast<unsigned char>(octets.front());
}

bool containsAny(QByteArrayView octets, QByteArrayView wanted)
{
    return std::any_of(wanted.begin(), wanted.end(),
                       [octets](char octet) { return octets.contains(octet); });
}

// True for a value with a value-length, which the codec takes for a text.
bool hasLength(QByteArrayView value)
{
    const unsigned char first = firstOf(value);
    return first != 0 && first <= LengthFollows;
}

// The codec reads Name and Content-ID as Latin-1.
QByteArray latin1OrUtf8(const QString &text)
{
    const bool isLatin1 = std::all_of(text.begin(), text.end(),
                                      [](QChar character) { return character.unicode() < 256; });
    return isLatin1 ? text.toLatin1() : text.toUtf8();
}

// The octets of a text, as the codec counts them.
QByteArrayView withoutQuote(QByteArrayView value)
{
    const bool isQuoted = firstOf(value) == WireText::Quote;
    return value.sliced(isQuoted ? 1 : 0).chopped(1);
}

// Octets with replacements, which come in the order of the octets. Copies with the first one.
class Edit
{
public:
    explicit Edit(QByteArrayView original = {}) : m_original(original) { }

    /// Replaces @p octets, which are a part of the original.
    void replace(QByteArrayView octets, QByteArrayView by);
    /// What has become of the original; nothing when it is unchanged.
    std::optional<QByteArray> takeResult();

private:
    QByteArrayView m_original;
    qsizetype m_done = 0; // octets of the original that were copied or replaced
    std::optional<QByteArray> m_result;
};

void Edit::replace(QByteArrayView octets, QByteArrayView by)
{
    if (!m_result) {
        m_result.emplace();
        // Longer replacements may follow; with room for them a long body is copied once.
        m_result->reserve(m_original.size() + m_original.size() / 64 + by.size());
    }
    const qsizetype start = octets.data() - m_original.data();
    m_result->append(m_original.sliced(m_done, start - m_done));
    m_result->append(by);
    m_done = start + octets.size();
}

std::optional<QByteArray> Edit::takeResult()
{
    if (m_result)
        m_result->append(m_original.sliced(m_done));
    return std::move(m_result);
}

// Edits one part at a time: its content type and its headers, then the body.
class BodyRewriter
{
public:
    BodyRewriter(QByteArrayView body, qsizetype offset)
        : m_original(body), m_offset(offset), m_body(body)
    {
    }

    ReadableBody rewritten();

private:
    void rewriteCount(const QvlPartScanner &scanner);
    void leaveOutPartsFrom(qsizetype position);
    [[nodiscard]] bool readPart(const QvlScannedPart &part);
    void writePart(const QvlScannedPart &part);

    [[nodiscard]] bool readContentType(QByteArrayView octets);
    void readMedia(QByteArrayView media, qint64 code);
    void readParameter(const QvlScannedParameter &parameter);
    void readCharset(const QvlScannedParameter &parameter);
    void readName(const QvlScannedParameter &parameter);

    [[nodiscard]] bool readHeaders(QByteArrayView headers);
    void readPages(QByteArrayView octets, int page);
    void readHeader(const QvlScannedHeader &header);
    void readLocation(const QvlScannedHeader &header);
    void readId(const QvlScannedHeader &header);
    void rewriteText(int code, const QvlScannedHeader &header, QByteArrayView text);

    void replaceParameter(const QvlScannedParameter &parameter, QByteArrayView by,
                          const char *reason);
    void replaceHeader(const QvlScannedHeader &header, QByteArrayView by, const char *reason);
    void report(QvlChange::Place place, int code, QByteArrayView octets, QByteArrayView by,
                const char *reason);

    QByteArrayView m_original;
    qsizetype m_offset;
    Edit m_body;
    Edit m_contentType; // of the part, without its value-length
    Edit m_headers; // of the part
    int m_part = -1;
    std::vector<QvlChange> m_changes;
};

ReadableBody BodyRewriter::rewritten()
{
    QvlPartScanner scanner(m_original);
    QvlScannedPart part;
    if (scanner.count() == 0)
        rewriteCount(scanner);
    while (m_part + 1 < MostParts && scanner.next(&part)) {
        if (part.index == 0)
            rewriteCount(scanner);
        m_part = part.index;
        const std::size_t before = m_changes.size();
        if (!readPart(part)) {
            m_changes.resize(before);
            break;
        }
        if (m_changes.size() > before)
            writePart(part);
    }
    if (m_part + 1 == MostParts && scanner.countSize() > 1 && scanner.count() > MostParts)
        leaveOutPartsFrom(scanner.position());
    return {m_body.takeResult(), std::move(m_changes)};
}

void BodyRewriter::rewriteCount(const QvlPartScanner &scanner)
{
    if (scanner.countSize() <= 1)
        return;
    const QByteArrayView octets = m_original.first(scanner.countSize());
    const char count = static_cast<char>(std::min(scanner.count(), MostParts));
    report(QvlChange::PartCount, QvlScannedField::NoCode, octets, {&count, 1}, Reason::LongCount);
    m_body.replace(octets, {&count, 1});
}

void BodyRewriter::leaveOutPartsFrom(qsizetype position)
{
    const QByteArrayView octets = m_original.sliced(position);
    m_part = MostParts;
    report(QvlChange::Parts, QvlScannedField::NoCode, octets, {}, Reason::TooMany);
    m_body.replace(octets, {});
}

// False for a malformed part.
bool BodyRewriter::readPart(const QvlScannedPart &part)
{
    return readContentType(part.contentTypeOctets) && readHeaders(part.headers);
}

void BodyRewriter::writePart(const QvlScannedPart &part)
{
    QByteArray type = part.contentTypeOctets.toByteArray();
    if (const auto changed = m_contentType.takeResult()) {
        type.clear();
        AppendOctets::value<ValueLengthBinary>(&type, int(changed->size()));
        type += *changed;
    }
    const auto changedHeaders = m_headers.takeResult();
    const QByteArrayView headers = changedHeaders ? QByteArrayView(*changedHeaders) : part.headers;
    QByteArray octets;
    AppendOctets::value<UIntBinary>(&octets, int(type.size() + headers.size()));
    AppendOctets::value<UIntBinary>(&octets, int(part.data.size()));
    octets.append(type).append(headers);
    m_body.replace(part.octets.chopped(part.data.size()), octets);
}

// content-type ::= octet >= 80 | text | value-length media parameter *
bool BodyRewriter::readContentType(QByteArrayView octets)
{
    const auto type = readPartContentType(octets);
    if (!type || !type->isComplete)
        return false;
    LinearBuffer buffer = WireRead::over(octets);
    std::ignore = WireRead::valueLength(&buffer); // the type may have none
    const QByteArrayView content = octets.sliced(buffer.getPosition());
    m_contentType = Edit(content);
    LinearBuffer media = WireRead::over(content);
    std::ignore = WspValues::skip(&media); // it has been read
    const qsizetype mediaSize = media.getPosition();
    readMedia(content.first(mediaSize), type->code);
    for (const QvlScannedParameter &parameter : type->parameters) {
        if (parameter.octets.data() >= content.data() + mediaSize) // not in the text of the media
            readParameter(parameter);
    }
    return true;
}

void BodyRewriter::readMedia(QByteArrayView media, qint64 code)
{
    if (!hasLength(media))
        return;
    QByteArray octets;
    if (code <= LowSevenBits)
        AppendOctets::code(&octets, int(code));
    else
        AppendOctets::text(&octets, UnknownType);
    report(QvlChange::PartType, QvlScannedField::NoCode, media, octets, Reason::LongMedia);
    m_contentType.replace(media, octets);
}

// A parameter that the codec passes over stays, so that a body it reads is not changed.
void BodyRewriter::readParameter(const QvlScannedParameter &parameter)
{
    if (!containsAny(parameter.octets, ParameterOctets))
        return;
    const QByteArrayView name = parameter.name ? parameter.name : parameter.letters;
    if (name.compare("charset", Qt::CaseInsensitive) == 0)
        readCharset(parameter);
    else if (name.compare("name", Qt::CaseInsensitive) == 0)
        readName(parameter);
    else
        replaceParameter(parameter, {}, Reason::UnknownParameter);
}

void BodyRewriter::readCharset(const QvlScannedParameter &parameter)
{
    const int charset = charsetOf(parameter);
    const bool isAny = parameter.number == 0;
    const bool isNumber = isAny || (parameter.number > 0 && charset != 0);
    if (parameter.code == ParameterCode::Charset && isNumber)
        return;
    if (charset == 0) {
        replaceParameter(parameter, {}, Reason::UnknownCharset);
        return;
    }
    QByteArray octets;
    AppendOctets::code(&octets, ParameterCode::Charset);
    AppendOctets::value<IntegerBinary>(&octets, charset);
    replaceParameter(parameter, octets, Reason::OtherForm);
}

void BodyRewriter::readName(const QvlScannedParameter &parameter)
{
    if (parameter.code == ParameterCode::Name && !hasLength(parameter.value))
        return;
    if (parameter.text.isNull()) {
        replaceParameter(parameter, {}, Reason::Unreadable);
        return;
    }
    QByteArray octets;
    AppendOctets::code(&octets, ParameterCode::Name);
    AppendOctets::text(&octets, latin1OrUtf8(parameter.text));
    replaceParameter(parameter, octets, Reason::OtherForm);
}

bool isLookAlike(int page)
{
    return HeaderOctets.contains(static_cast<char>(page));
}

// False for malformed headers.
bool BodyRewriter::readHeaders(QByteArrayView headers)
{
    m_headers = Edit(headers);
    QvlPartHeaderScanner scanner(headers);
    QvlScannedHeader header;
    qsizetype end = 0;
    while (scanner.next(&header)) {
        readPages(headers.sliced(end, header.offset - end), header.page);
        end = scanner.position();
        if (isLookAlike(header.page) && header.letters.isEmpty())
            replaceHeader(header, {}, Reason::OtherPage);
        else
            readHeader(header);
    }
    readPages(headers.sliced(end, scanner.position() - end), DefaultPage);
    return scanner.result() == QvlPartHeaderScanner::HeadersRead;
}

// Octets that select @p page. The pages 8E and C0 are left out, as are the headers in them.
void BodyRewriter::readPages(QByteArrayView octets, int page)
{
    if (!containsAny(octets, HeaderOctets))
        return;
    QByteArray shift;
    if (!isLookAlike(page)) {
        shift.append(static_cast<char>(ShiftDelimiter));
        shift.append(static_cast<char>(page));
    }
    report(QvlChange::PartHeader, QvlScannedField::NoCode, octets, shift, Reason::OtherPage);
    m_headers.replace(octets, shift);
}

// A header that the codec passes over stays. Those in letters are never known on other pages, where
// the code of the same header means something else.
void BodyRewriter::readHeader(const QvlScannedHeader &header)
{
    if (!containsAny(header.octets, HeaderOctets))
        return;
    const bool mayBeKnown = header.page == DefaultPage;
    if (mayBeKnown && header.isNamed("Content-Location"))
        readLocation(header);
    else if (mayBeKnown && header.isNamed("Content-ID"))
        readId(header);
    else
        replaceHeader(header, {}, Reason::UnknownHeader);
}

void BodyRewriter::readLocation(const QvlScannedHeader &header)
{
    const bool isCoded = header.code == HeaderCode::ContentLocation && !hasLength(header.value);
    const QByteArray rewritten = isCoded ? QByteArray() : header.text().toUtf8();
    const QByteArrayView octets = isCoded ? withoutQuote(header.value) : rewritten;
    if (octets.size() > LongestLocation)
        replaceHeader(header, {}, Reason::LongLocation);
    else if (!isCoded)
        rewriteText(HeaderCode::ContentLocation, header, octets);
}

void BodyRewriter::readId(const QvlScannedHeader &header)
{
    if (header.code != HeaderCode::ContentId || hasLength(header.value))
        rewriteText(HeaderCode::ContentId, header, latin1OrUtf8(header.text()));
}

void BodyRewriter::rewriteText(int code, const QvlScannedHeader &header, QByteArrayView text)
{
    if (header.text().isNull()) {
        replaceHeader(header, {}, Reason::Unreadable);
        return;
    }
    QByteArray octets;
    AppendOctets::code(&octets, code);
    if (code == HeaderCode::ContentId)
        octets.append('"');
    AppendOctets::text(&octets, text);
    replaceHeader(header, octets, Reason::OtherForm);
}

void BodyRewriter::replaceParameter(const QvlScannedParameter &parameter, QByteArrayView by,
                                    const char *reason)
{
    report(QvlChange::PartParameter, parameter.code, parameter.octets, by, reason);
    m_contentType.replace(parameter.octets, by);
}

void BodyRewriter::replaceHeader(const QvlScannedHeader &header, QByteArrayView by,
                                 const char *reason)
{
    report(QvlChange::PartHeader, header.code, header.octets, by, reason);
    m_headers.replace(header.octets, by);
}

void BodyRewriter::report(QvlChange::Place place, int code, QByteArrayView octets,
                          QByteArrayView by, const char *reason)
{
    const auto kind = by.isEmpty() ? QvlChange::LeftOut : QvlChange::Rewritten;
    const qsizetype start = octets.data() - m_original.data();
    m_changes.push_back({kind, place, m_part, code, octets, m_offset + start, reason});
}

} // namespace

ReadableBody readableBody(QByteArrayView body, qsizetype offset)
{
    return BodyRewriter(body, offset).rewritten();
}
