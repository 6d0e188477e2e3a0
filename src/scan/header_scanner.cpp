#include "scan/header_scanner.h"

#include "base/code_meanings.h"
#include "wire/known_field_table.h"
#include "wire/octets.h"
#include "wire/read.h"
#include "wire/wire_text.h"

using namespace WireOctet;

namespace {

using Result = QvlHeaderScanner::Result;

constexpr CodeMeaning meanings[]{
    {Result::Scanning, "the scan has not ended"},
    {Result::ContentTypeRead, "the header ends with Content-Type"},
    {Result::DataRead, "the data ends after a field"},
    {Result::NoField, "an octet begins no field"},
    {Result::NoValue, "the data ends before a value"},
    {Result::TextWithoutEnd, "the data ends in a text"},
    {Result::LengthWithoutEnd, "the data ends in a length"},
    {Result::LengthTooLarge, "a value is longer than the data"},
};

bool beginsName(unsigned char octet)
{
    return octet > LengthFollows && octet < WireText::Quote;
}

struct Name
{
    int code = QvlScannedField::NoCode;
    QByteArrayView letters;
};

// name ::= octet >= 80 | text
Result readName(LinearBuffer *buffer, Name *name)
{
    const auto first = WireRead::octet(buffer);
    if (!first)
        return Result::DataRead;
    if (hasHighBit(*first)) {
        name->code = withoutHighBit(*first);
    } else {
        if (!beginsName(*first))
            return Result::NoField;
        buffer->rewind(1);
        const auto letters = WireRead::text(buffer);
        if (!letters)
            return Result::TextWithoutEnd;
        name->letters = *letters;
    }
    return buffer->hasMore() ? Result::Scanning : Result::NoValue;
}

Result skipText(LinearBuffer *buffer)
{
    return WireRead::text(buffer) ? Result::Scanning : Result::TextWithoutEnd;
}

// value ::= octet >= 80 | value-length octet * | text
Result skipValue(LinearBuffer *buffer)
{
    const unsigned char first = buffer->readByte();
    if (hasHighBit(first))
        return Result::Scanning;
    if (first > LengthFollows)
        return skipText(buffer);
    const auto length = WireRead::lengthFrom(buffer, first);
    if (!length)
        return Result::LengthWithoutEnd;
    return buffer->readView(*length) ? Result::Scanning : Result::LengthTooLarge;
}

} // namespace

QvlHeaderScanner::QvlHeaderScanner(QByteArrayView pdu) : m_pdu(pdu), m_buffer(WireRead::over(pdu))
{
}

// field ::= octet >= 80 value | text text
bool QvlHeaderScanner::next(QvlScannedField *field)
{
    if (m_result != Scanning)
        return false;
    Name name;
    m_result = readName(&m_buffer, &name);
    if (m_result != Scanning)
        return false;
    const int valueStart = m_buffer.getPosition();
    const bool isInLetters = name.code == QvlScannedField::NoCode;
    m_result = isInLetters ? skipText(&m_buffer) : skipValue(&m_buffer);
    if (m_result != Scanning)
        return false;
    const int end = m_buffer.getPosition();
    field->code = name.code;
    field->letters = name.letters;
    field->known = KnownFields::find(name.code);
    field->offset = m_position;
    field->octets = m_pdu.sliced(m_position, end - m_position);
    field->value = m_pdu.sliced(valueStart, end - valueStart);
    m_position = end;
    if (name.code == HeaderFieldCode::ContentType)
        m_result = ContentTypeRead;
    return true;
}

const char *QvlHeaderScanner::meaning() const
{
    return meaningOf(meanings, m_result);
}
