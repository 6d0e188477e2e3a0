/*
 * The header values that the whole messaging system shares, whatever the transport: base of the
 * header record of the wire codec.
 */
#pragma once

#include "platform/entry.h"
#include "platform/qt_names.h"

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
    MMS_UTIL_MsgHeaderBase();
    MMS_UTIL_MsgHeaderBase(const MMS_UTIL_MsgHeaderBase &) = delete;
    MMS_UTIL_MsgHeaderBase &operator=(const MMS_UTIL_MsgHeaderBase &) = delete;
    virtual ~MMS_UTIL_MsgHeaderBase();

    MMS_UTIL_Entry getFrom() const { return m_from; }
    void setFrom(const MMS_UTIL_Entry &from) { m_from = from; }

    /// Each of the three copies @p entry to the end of its list.
    void addToRecipient(const MMS_UTIL_Entry &entry);
    void addCcRecipient(const MMS_UTIL_Entry &entry);
    void addBccRecipient(const MMS_UTIL_Entry &entry);

    /// The recipient lists themselves, which delete their entries: change them in place.
    QPtrList<MMS_UTIL_Entry> &getToRecipients() { return m_to; }
    const QPtrList<MMS_UTIL_Entry> &getToRecipients() const { return m_to; }
    QPtrList<MMS_UTIL_Entry> &getCcRecipients() { return m_cc; }
    const QPtrList<MMS_UTIL_Entry> &getCcRecipients() const { return m_cc; }
    QPtrList<MMS_UTIL_Entry> &getBccRecipients() { return m_bcc; }
    const QPtrList<MMS_UTIL_Entry> &getBccRecipients() const { return m_bcc; }

    QString getSubject() const { return m_subject; }
    void setSubject(const QString &subject) { m_subject = subject; }

    /// Date of the message. A decoded header carries the moment of its decoding.
    QDateTime getDate() const { return m_date; }
    void setDate(const QDateTime &date) { m_date = date; }

    /// Seconds; what they count from depends on who set them (see ExpiryField).
    int getExpiry() const { return m_expiry; }
    void setExpiry(int seconds) { m_expiry = seconds; }

    QDateTime getDeliveryTime() const { return m_deliveryTime; }
    void setDeliveryTime(const QDateTime &time) { m_deliveryTime = time; }

    /// 128 low, 129 normal (the default), 130 high.
    unsigned char getPriority() const { return m_priority; }
    void setPriority(unsigned char priority) { m_priority = priority; }

    /// Size in octets that a notification announces.
    int getMessageSize() const { return m_messageSize; }
    void setMessageSize(int octets) { m_messageSize = octets; }

    bool getReadReply() const { return m_readReply; }
    void setReadReply(bool wanted) { m_readReply = wanted; }
    bool getDeliveryReport() const { return m_deliveryReport; }
    void setDeliveryReport(bool wanted) { m_deliveryReport = wanted; }
    bool getSenderVisibility() const { return m_senderVisibility; }
    void setSenderVisibility(bool flag) { m_senderVisibility = flag; }

    /// Content type of the body: main type, subtype and the parameters joined by ";".
    QString getContentType() const { return m_contentType; }
    void setContentType(const QString &type) { m_contentType = type; }
    QString getContentSubType() const { return m_contentSubType; }
    void setContentSubType(const QString &subType) { m_contentSubType = subType; }
    QString getContentTypeParams() const { return m_contentTypeParams; }
    void setContentTypeParams(const QString &params) { m_contentTypeParams = params; }

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
