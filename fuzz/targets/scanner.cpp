/*
 * The fields of a header from outside: they fill it without gaps, lie within the octets and can be
 * decoded. The decoder reads the same fields when its codecs take exactly the octets of each value.
 */
#include "support/pdu.h"

#include <array>
#include <vector>

namespace {

std::vector<QvlScannedField> scanned(QvlHeaderScanner *scanner)
{
    std::vector<QvlScannedField> fields;
    QvlScannedField field;
    while (scanner->next(&field))
        fields.push_back(field);
    require(scanner->result() != QvlHeaderScanner::Scanning, "a scan ends");
    return fields;
}

void requireTiling(const QByteArray &pdu, const std::vector<QvlScannedField> &fields,
                   qsizetype position)
{
    qsizetype end = 0;
    for (const QvlScannedField &field : fields) {
        require(field.offset == end, "a field begins where the one before ends");
        require(field.octets.data() == pdu.constData() + end, "a field is in the PDU");
        require(field.octets.size() >= 2, "a field has a name and a value");
        end += field.octets.size();
        require(end <= pdu.size(), "a field ends in the PDU");
        require(field.valueOffset() > field.offset && field.valueOffset() < end,
                "a value is in its field");
        require(field.value.data() == pdu.constData() + field.valueOffset(),
                "a value is where its offset says");
    }
    require(position == end, "the scan ends after the last field");
}

void requireDecodable(const QvlScannedField &field)
{
    const QvlScannedValue value = field.decoded();
    require(value.text.size() <= field.value.size() || field.code == HeaderFieldCode::ContentType,
            "a text has no more characters than its value has octets");
    require(value.isReadable || (value.text.isNull() && value.number == -1 && value.token == -1),
            "an unreadable value has no parts");
    require(value.token == -1 || (value.token >= 128 && value.token <= 255), "a token is an octet");
    require(value.number >= -1 && value.count >= -1, "numbers are not negative");
}

bool takesItsValue(const QvlScannedField &field, const QByteArray &pdu, MMS_UA_UAMsg *record)
{
    const HeaderFieldInfo *info = headerFieldInfo(field.code);
    if (!info)
        return false;
    const auto *value = reinterpret_cast<const unsigned char *>(field.value.data());
    LinearBuffer buffer = LinearBuffer::forReading(value, int(pdu.size() - field.valueOffset()));
    return info->codec->readField(&buffer, record) == WireResult::Read
        && buffer.getPosition() == field.value.size();
}

// The decoder counts the fields, equal ones in a row as one, and keeps numbers up to 24.
std::array<int, 25> positionsOf(const std::vector<QvlScannedField> &fields)
{
    std::array<int, 25> positions{};
    int previous = QvlScannedField::NoCode;
    int position = 0;
    for (const QvlScannedField &field : fields) {
        if (field.code != previous && ++position <= 24)
            positions[std::size_t(field.code)] = position;
        previous = field.code;
    }
    return positions;
}

void requireSameAsDecoder(const QByteArray &pdu, const std::vector<QvlScannedField> &fields,
                          qsizetype position)
{
    MMS_UA_UAMsg record;
    for (const QvlScannedField &field : fields) {
        if (!takesItsValue(field, pdu, &record))
            return;
    }
    MMS_UA_UAMsg header;
    require(decodeHeader(pdu, &header) == WireResult::Read, "the decoder reads the header");
    require(header.getBodyLength() == pdu.size() - position, "the decoder finds the same body");
    const std::array<int, 25> positions = positionsOf(fields);
    for (const HeaderFieldInfo &info : headerFields())
        require(header.getFieldPosition(info.code) == positions[info.code],
                "the decoder reads the same fields in the same order");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray pdu(reinterpret_cast<const char *>(data), qsizetype(size));
    QvlHeaderScanner scanner(pdu);
    const std::vector<QvlScannedField> fields = scanned(&scanner);
    requireTiling(pdu, fields, scanner.position());
    for (const QvlScannedField &field : fields)
        requireDecodable(field);
    qvlSentTimes(pdu);

    QvlHeaderScanner alone(QByteArrayView(pdu).first(scanner.position()));
    require(scanned(&alone).size() == fields.size() && alone.isComplete(),
            "the fields are the same without what follows them");
    if (scanner.isComplete())
        requireSameAsDecoder(pdu, fields, scanner.position());
    return 0;
}
