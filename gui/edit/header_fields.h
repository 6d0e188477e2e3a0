/*
 * Fields of a message to send. Each function sets a value and marks its field as present, or
 * removes the field when there is nothing to say.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

/// The lists of recipients.
enum class Recipients : unsigned char { To, Cc, Bcc };

namespace HeaderFields {

/// The list itself, owned by @p header.
QPtrList<MMS_UTIL_Entry> &recipients(Recipients kind, MMS_UA_UAMsg *header);

void setRecipients(Recipients kind, const std::vector<MMS_UTIL_Entry> &entries,
                   MMS_UA_UAMsg *header);
void setSubject(const QString &subject, MMS_UA_UAMsg *header);
void setPriority(unsigned char priority, MMS_UA_UAMsg *header);
void setDeliveryReport(bool isWanted, MMS_UA_UAMsg *header);
void setReadReport(bool isWanted, MMS_UA_UAMsg *header);
/// In seconds after the message is sent.
void setExpiry(std::optional<int> seconds, MMS_UA_UAMsg *header);
void setDeliveryTime(const std::optional<QDateTime> &time, MMS_UA_UAMsg *header);

} // namespace HeaderFields
