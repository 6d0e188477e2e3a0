#include "edit/header_fields.h"

namespace {

void setPresent(unsigned char field, bool isPresent, MMS_UA_UAMsg *header)
{
    const unsigned int mask = headerFieldMask(field);
    const unsigned int fields = header->getFieldsPresent();
    header->setFieldsPresent(isPresent ? fields | mask : fields & ~mask);
}

constexpr unsigned char codeOf(Recipients kind)
{
    constexpr unsigned char fields[] = {HeaderFieldCode::To, HeaderFieldCode::Cc,
                                        HeaderFieldCode::Bcc};
    return fields[std::size_t(kind)];
}

} // namespace

QPtrList<MMS_UTIL_Entry> &HeaderFields::recipients(Recipients kind, MMS_UA_UAMsg *header)
{
    switch (kind) {
    case Recipients::To:
        return header->getToRecipients();
    case Recipients::Cc:
        return header->getCcRecipients();
    case Recipients::Bcc:
        break;
    }
    return header->getBccRecipients();
}

void HeaderFields::setRecipients(Recipients kind, const std::vector<MMS_UTIL_Entry> &entries,
                                 MMS_UA_UAMsg *header)
{
    QPtrList<MMS_UTIL_Entry> &list = recipients(kind, header);
    list.clear();
    for (const MMS_UTIL_Entry &entry : entries)
        list.append(new MMS_UTIL_Entry(entry));
    setPresent(codeOf(kind), !entries.empty(), header);
}

void HeaderFields::setSubject(const QString &subject, MMS_UA_UAMsg *header)
{
    header->setSubject(subject);
    setPresent(HeaderFieldCode::Subject, !subject.isEmpty(), header);
}

void HeaderFields::setPriority(unsigned char priority, MMS_UA_UAMsg *header)
{
    header->setPriority(priority);
    setPresent(HeaderFieldCode::Priority, priority != QvlPriority::Normal, header);
}

void HeaderFields::setDeliveryReport(bool isWanted, MMS_UA_UAMsg *header)
{
    header->setDeliveryReport(isWanted);
    setPresent(HeaderFieldCode::DeliveryReport, isWanted, header);
}

void HeaderFields::setReadReport(bool isWanted, MMS_UA_UAMsg *header)
{
    header->setReadReply(isWanted);
    setPresent(HeaderFieldCode::ReadReply, isWanted, header);
}

void HeaderFields::setExpiry(std::optional<int> seconds, MMS_UA_UAMsg *header)
{
    header->setExpiry(seconds.value_or(0));
    setPresent(HeaderFieldCode::Expiry, seconds.has_value(), header);
}

void HeaderFields::setDeliveryTime(const std::optional<QDateTime> &time, MMS_UA_UAMsg *header)
{
    header->setDeliveryTime(time.value_or(QDateTime()));
    setPresent(HeaderFieldCode::DeliveryTime, time.has_value(), header);
}
