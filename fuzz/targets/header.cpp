/*
 * An untrusted header: decoded, encoded, decoded again. From the second encoding on, the octets
 * must not change. Exceptions: times, which hold the moment of decoding or are local;
 * Sender-Visibility, which is written with the opposite meaning; non-ASCII texts, which are written
 * as UTF-8 and read as Latin-1; addresses with special characters; and a Start with a leading
 * quote, because each reading drops one.
 */
#include "support/pdu.h"

#include <algorithm>

namespace {

constexpr unsigned char AsymmetricFields[] = {HeaderFieldCode::Date, HeaderFieldCode::DeliveryTime,
                                              HeaderFieldCode::Expiry,
                                              HeaderFieldCode::SenderVisibility};

void dropAsymmetric(MMS_UA_UAMsg *header)
{
    for (const unsigned char code : AsymmetricFields)
        header->setFieldsPresent(header->getFieldsPresent() & ~headerFieldMask(code));
}

bool isAscii(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u' ' && c <= u'~'; });
}

// Only addresses without "<", ">" and "/", which have a meaning in the text around them.
bool isPlain(const MMS_UTIL_Entry &entry)
{
    const QString text = entry.getName() + entry.getAddress();
    return isAscii(text) && !text.contains(u'<') && !text.contains(u'>') && !text.contains(u'/');
}

bool isPlain(const QPtrList<MMS_UTIL_Entry> &entries)
{
    return std::all_of(entries.begin(), entries.end(),
                       [](const MMS_UTIL_Entry *entry) { return isPlain(*entry); });
}

bool isSymmetric(MMS_UA_UAMsg *header)
{
    const QString texts[] = {header->getTransactionId(),   header->getSubject(),
                             header->getContentLocation(), header->getMessageId(),
                             header->getResponseText(),    header->getContentType(),
                             header->getContentSubType(),  header->getContentTypeParams()};
    const QString start = ContentTypeField::startOf(header->getContentTypeParams());
    return std::all_of(std::begin(texts), std::end(texts),
                       [](const QString &text) { return isAscii(text); })
        && !start.startsWith(u'"') && isPlain(header->getFrom())
        && isPlain(header->getToRecipients()) && isPlain(header->getCcRecipients())
        && isPlain(header->getBccRecipients());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray pdu(reinterpret_cast<const char *>(data), qsizetype(size));
    MMS_UA_UAMsg first;
    if (decodeHeader(pdu, &first) != WireResult::Read)
        return 0;
    first.isMMSVersionCorrect();
    first.isMMSMinorVersionCorrect();
    first.mandatoryFldsPresentInPDU();
    first.pduOrderCheck();
    encodeHeader(&first);

    dropAsymmetric(&first);
    if (!isSymmetric(&first))
        return 0;
    const QByteArray once = encodeHeader(&first);
    MMS_UA_UAMsg second;
    if (decodeHeader(once, &second) != WireResult::Read)
        return 0;
    const QByteArray twice = encodeHeader(&second);
    MMS_UA_UAMsg third;
    if (decodeHeader(twice, &third) != WireResult::Read)
        return 0;
    require(encodeHeader(&third) == twice, "the octets do not change after the second time");
    return 0;
}
