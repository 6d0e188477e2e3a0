/** @file
 * The header of one MMS PDU in memory, with the checks for received headers.
 */
#pragma once

#include "../platform/msg_header_base.h"
#include "header_values.h"

#include <QByteArray>
#include <QString>

#include <array>

/**
 * Header record of one PDU: filled by MMS_UA_Decoder or by the application, read by MMS_UA_Encoder.
 *
 * Bit c - 1 of the fields present says whether the header field with code c (see header_fields.h)
 * is present. The decoder sets the bit of every field that it reads; an application that fills a
 * record sets the bit of every field to be written.
 */
class QVL_EXPORT MMS_UA_UAMsg : public MMS_UTIL_MsgHeaderBase
{
public:
    /// A record of type m-send-req with no field present.
    MMS_UA_UAMsg();
    /// Deletes the recipient entries, not what getBody() points at.
    ~MMS_UA_UAMsg() override;

    /// The presence bits of the fields, see headerFieldMask().
    unsigned int getFieldsPresent() const { return m_fieldsPresent; }
    /// @copydoc getFieldsPresent
    void setFieldsPresent(unsigned int mask) { m_fieldsPresent = mask; }
    /// Sets the bits of @p mask and keeps the others.
    void addFieldsPresent(unsigned int mask) { m_fieldsPresent |= mask; }
    /// True when every field of @p mask is present; always true for a mask of 0.
    bool fieldsPresent(unsigned int mask) const { return (m_fieldsPresent & mask) == mask; }

    /// A QvlMessageType; starts as SendReq.
    unsigned char getMessageType() const { return static_cast<unsigned char>(m_messageType); }
    /// @copydoc getMessageType
    void setMessageType(unsigned char type) { m_messageType = type; }

    /// Id shared by a request and its answer. A non-ASCII text on the wire reads as Latin-1.
    QString getTransactionId() const { return m_transactionId; }
    /// @copydoc getTransactionId
    void setTransactionId(const QString &id) { m_transactionId = id; }

    /// Major version in bits 4 to 6, minor version in bits 0 to 3: 0x10 is 1.0. Starts at 0.
    unsigned char getMMSVersion() const { return m_mmsVersion; }
    /// @copydoc getMMSVersion
    void setMMSVersion(unsigned char version) { m_mmsVersion = version; }

    /// A QvlMessageClass; starts as Personal.
    unsigned char getMessageClass() const { return m_messageClass; }
    /// @copydoc getMessageClass
    void setMessageClass(unsigned char messageClass) { m_messageClass = messageClass; }

    /// A QvlStatus; starts as Expired.
    unsigned char getStatus() const { return m_status; }
    /// @copydoc getStatus
    void setStatus(unsigned char status) { m_status = status; }

    /// Whether the recipient allows a delivery report to the sender; starts as false.
    bool getReportAllowed() const { return m_reportAllowed; }
    /// @copydoc getReportAllowed
    void setReportAllowed(bool allowed) { m_reportAllowed = allowed; }

    /// URI from which to fetch the message of a notification.
    QString getContentLocation() const { return m_contentLocation; }
    /// @copydoc getContentLocation
    void setContentLocation(const QString &location) { m_contentLocation = location; }
    /// Id assigned by the relay.
    QString getMessageId() const { return m_messageId; }
    /// @copydoc getMessageId
    void setMessageId(const QString &id) { m_messageId = id; }

    /// A QvlResponseStatus; starts as Ok.
    unsigned char getResponseStatus() const { return m_responseStatus; }
    /// @copydoc getResponseStatus
    void setResponseStatus(unsigned char status) { m_responseStatus = status; }
    /// The relay's verdict on a sent message in words; empty if it gives none.
    QString getResponseText() const { return m_responseText; }
    /// @copydoc getResponseText
    void setResponseText(const QString &text) { m_responseText = text; }

    /// First octet after the decoded header. Points into the decoder's input and is not owned; null
    /// until a header was decoded.
    unsigned char *getBody() const { return m_body; }
    /// @copydoc getBody
    void setBody(unsigned char *body) { m_body = body; }
    /// Octets from getBody() to the end of the PDU; 0 for a PDU without a body.
    int getBodyLength() const { return m_bodyLength; }
    /// @copydoc getBodyLength
    void setBodyLength(int octets) { m_bodyLength = octets; }

    /// The octets of the body without copying them: use the array only as long as the octets at
    /// getBody() exist.
    QByteArray getBodyOctets() const
    {
        return QByteArray::fromRawData(reinterpret_cast<const char *>(m_body), m_bodyLength);
    }

    /// Position of the field among the fields of the decoded header, counted from 1; 0 when the
    /// header does not have it. Repetitions in a row share a position.
    unsigned char getFieldPosition(unsigned char code) const;
    /// Stores the position for a code up to 25; ignores positions outside 1..24 and other codes.
    void setFieldPosition(unsigned char code, unsigned char position);

    /// True when the major version is 1.
    bool isMMSVersionCorrect() const { return (m_mmsVersion & 0x70) == 0x10; }
    /// True when the minor version is 0.
    bool isMMSMinorVersionCorrect() const { return (m_mmsVersion & 0x0F) == 0; }
    /// True when every field that the message type requires is present, see MessageTypeInfo; also
    /// true for an unknown type.
    bool mandatoryFldsPresentInPDU() const;
    /**
     * True when Message-Type, Transaction-Id and MMS-Version, if present, came first and in this
     * order, and Content-Type, if present, came last.
     */
    bool pduOrderCheck() const;

private:
    unsigned int m_fieldsPresent = 0;
    unsigned int m_messageType = QvlMessageType::SendReq;
    QString m_transactionId;
    unsigned char m_mmsVersion = 0;
    unsigned char m_messageClass = QvlMessageClass::Personal;
    unsigned char m_status = QvlStatus::Expired;
    bool m_reportAllowed = false;
    QString m_contentLocation;
    QString m_messageId;
    unsigned char m_responseStatus = QvlResponseStatus::Ok;
    QString m_responseText;
    unsigned char *m_body = nullptr;
    int m_bodyLength = 0;
    std::array<unsigned char, 26> m_fieldPositions{};
};
