/** @file
 * The header values that do not depend on the transport: base class of the wire codec's header
 * record.
 */
#pragma once

#include "../base/qt_names.h"
#include "entry.h"

#include <QDateTime>
#include <QString>

/**
 * Sender, recipients and the other header values of a message.
 *
 * Owns its recipient entries; they are deleted with the record. Not copyable.
 */
class QVL_EXPORT MMS_UTIL_MsgHeaderBase
{
public:
    /// No sender and no recipients; the priority is normal, everything else empty, 0 or false.
    MMS_UTIL_MsgHeaderBase();
    MMS_UTIL_MsgHeaderBase(const MMS_UTIL_MsgHeaderBase &) = delete;
    MMS_UTIL_MsgHeaderBase &operator=(const MMS_UTIL_MsgHeaderBase &) = delete;
    /// Deletes the recipient entries.
    virtual ~MMS_UTIL_MsgHeaderBase();

    /// Sender. When a header is encoded, a sender without an address asks the relay to insert it. A
    /// decoded header without a sender has an entry of type MMS_UTIL_Entry::Absent.
    MMS_UTIL_Entry getFrom() const { return m_from; }
    /// @copydoc getFrom
    void setFrom(const MMS_UTIL_Entry &from) { m_from = from; }

    /// Adds a copy of @p entry to the To recipients.
    void addToRecipient(const MMS_UTIL_Entry &entry);
    /// Adds a copy of @p entry to the Cc recipients.
    void addCcRecipient(const MMS_UTIL_Entry &entry);
    /// Adds a copy of @p entry to the Bcc recipients, hidden from the others.
    void addBccRecipient(const MMS_UTIL_Entry &entry);

    /// @name Lists of recipients
    /// @{

    /// The list of recipients itself, which owns its entries: change it in place.
    QPtrList<MMS_UTIL_Entry> &getToRecipients() { return m_to; }
    const QPtrList<MMS_UTIL_Entry> &getToRecipients() const { return m_to; }
    QPtrList<MMS_UTIL_Entry> &getCcRecipients() { return m_cc; }
    const QPtrList<MMS_UTIL_Entry> &getCcRecipients() const { return m_cc; }
    QPtrList<MMS_UTIL_Entry> &getBccRecipients() { return m_bcc; }
    const QPtrList<MMS_UTIL_Entry> &getBccRecipients() const { return m_bcc; }
    /// @}

    /// Subject; empty when there is none.
    QString getSubject() const { return m_subject; }
    /// @copydoc getSubject
    void setSubject(const QString &subject) { m_subject = subject; }

    /// Date of the message, in local time. A decoded header has the moment of its decoding.
    QDateTime getDate() const { return m_date; }
    /// @copydoc getDate
    void setDate(const QDateTime &date) { m_date = date; }

    /// Seconds until the message expires. An application sets the seconds from now; a decoded value
    /// counts from another date, see QvlExpiry.
    int getExpiry() const { return m_expiry; }
    /// @copydoc getExpiry
    void setExpiry(int seconds) { m_expiry = seconds; }

    /// When to deliver the message, in local time; null for at once. A relative time is decoded to
    /// a date in the first years after 1970.
    QDateTime getDeliveryTime() const { return m_deliveryTime; }
    /// @copydoc getDeliveryTime
    void setDeliveryTime(const QDateTime &time) { m_deliveryTime = time; }

    /// 128 low, 129 normal (the default), 130 high.
    unsigned char getPriority() const { return m_priority; }
    /// @copydoc getPriority
    void setPriority(unsigned char priority) { m_priority = priority; }

    /// Size in octets that a notification announces; 0 if it announces none.
    int getMessageSize() const { return m_messageSize; }
    /// @copydoc getMessageSize
    void setMessageSize(int octets) { m_messageSize = octets; }

    /// Whether the sender asks for a read report.
    bool getReadReply() const { return m_readReply; }
    /// @copydoc getReadReply
    void setReadReply(bool wanted) { m_readReply = wanted; }
    /// Whether the sender asks for a delivery report.
    bool getDeliveryReport() const { return m_deliveryReport; }
    /// @copydoc getDeliveryReport
    void setDeliveryReport(bool wanted) { m_deliveryReport = wanted; }
    /// When encoding, true shows the sender. A decoded header has the opposite value, see
    /// SenderVisibilityField.
    bool getSenderVisibility() const { return m_senderVisibility; }
    /// @copydoc getSenderVisibility
    void setSenderVisibility(bool flag) { m_senderVisibility = flag; }

    /// @name Content type of the body
    /// @{

    /// Content type of the body: main type, subtype and the parameters joined by ";".
    QString getContentType() const { return m_contentType; }
    void setContentType(const QString &type) { m_contentType = type; }
    QString getContentSubType() const { return m_contentSubType; }
    void setContentSubType(const QString &subType) { m_contentSubType = subType; }
    QString getContentTypeParams() const { return m_contentTypeParams; }
    void setContentTypeParams(const QString &params) { m_contentTypeParams = params; }
    /// @}

private:
    MMS_UTIL_Entry m_from;
    QPtrList<MMS_UTIL_Entry> m_to;
    QPtrList<MMS_UTIL_Entry> m_cc;
    QPtrList<MMS_UTIL_Entry> m_bcc;
    QString m_subject;
    QDateTime m_date;
    int m_expiry = 0;
    QDateTime m_deliveryTime;
    unsigned char m_priority = 129;
    int m_messageSize = 0;
    bool m_readReply = false;
    bool m_deliveryReport = false;
    bool m_senderVisibility = false;
    QString m_contentType;
    QString m_contentSubType;
    QString m_contentTypeParams;
};
