/*
 * PDUs from outside, prepared for the decoder: fields that it takes stay as they are, the others
 * are reported, and a well-formed header is decoded.
 */
#include "support/pdu.h"

#include <cstddef>
#include <vector>

namespace {

std::vector<QvlScannedField> scanned(QByteArrayView octets, bool *isComplete)
{
    std::vector<QvlScannedField> fields;
    QvlHeaderScanner scanner(octets);
    QvlScannedField field;
    while (scanner.next(&field))
        fields.push_back(field);
    *isComplete = scanner.isComplete();
    return fields;
}

void requireChangesIn(const QByteArray &pdu, const std::vector<QvlChange> &changes)
{
    for (const QvlChange &change : changes) {
        require(change.octets.data() == pdu.constData() + change.offset,
                "a change is at its offset");
        require(change.offset + change.octets.size() <= pdu.size(), "a change is in the PDU");
        require(*change.reason != '\0', "a change has a reason");
    }
}

// Each field is unchanged, or reported.
void requireReportedChanges(const QByteArray &pdu, const QvlReadablePdu &readable)
{
    bool isComplete = false;
    const auto before = scanned(pdu, &isComplete);
    const bool wasComplete = isComplete;
    const auto after = scanned(readable.header(), &isComplete);
    std::size_t at = 0;
    std::size_t reported = 0;
    for (const QvlScannedField &field : before) {
        const auto &changes = readable.changes();
        const bool isReported = reported < changes.size()
            && changes[reported].place == QvlChange::HeaderField
            && changes[reported].offset == field.offset;
        if (isReported && changes[reported++].kind == QvlChange::LeftOut)
            continue;
        require(at < after.size() && after[at].code == field.code, "a field is there or reported");
        require(isReported || after[at].octets == field.octets, "other fields are not changed");
        ++at;
    }
    MMS_UA_UAMsg header;
    if (wasComplete)
        require(readable.decodeHeader(&header) == WireResult::Read, "a whole header is decoded");
}

void requireNothingLeftToDo(const QvlReadablePdu &readable)
{
    MMS_UA_UAMsg header;
    if (readable.decodeHeader(&header) != WireResult::Read)
        return;
    const QByteArray octets = readable.header().toByteArray();
    require(QvlReadablePdu(octets).changes().empty(), "a header is prepared once");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray pdu(reinterpret_cast<const char *>(data), qsizetype(size));
    const QvlReadablePdu readable(pdu);
    requireChangesIn(pdu, readable.changes());
    MMS_UA_UAMsg header;
    if (decodeHeader(pdu, &header) == WireResult::Read) {
        require(readable.header() == QByteArrayView(pdu).first(pdu.size() - header.getBodyLength()),
                "a header that the decoder reads is not changed");
    } else {
        requireReportedChanges(pdu, readable);
    }
    requireNothingLeftToDo(readable);
    return 0;
}
