/** @file
 * Address entry of a message: a sender or a recipient.
 */
#pragma once

#include "../base/export.h"

#include <QString>

/// One address: a display name, the kind of address and the address itself.
class QVL_EXPORT MMS_UTIL_Entry
{
public:
    /// Kinds of address, as the header field codecs use them.
    enum Type : unsigned char {
        Email = 0, ///< e-mail address, or anything else that is not a phone number
        Plmn = 1, ///< phone number; on the wire it ends in "/TYPE=PLMN"
        Absent = 2, ///< marks a sender whose address is not known
    };

    /// An empty entry of type Email.
    MMS_UTIL_Entry() = default;
    /// An entry with these values; @p type is a Type.
    MMS_UTIL_Entry(QString name, unsigned char type, QString address);

    /// Display name, often empty. Read from messages but never written.
    QString getName() const { return m_name; }
    /// @copydoc getName
    void setName(const QString &name) { m_name = name; }
    /// A Type. Only Email and Plmn exist on the wire.
    unsigned char getType() const { return m_type; }
    /// @copydoc getType
    void setType(unsigned char type) { m_type = type; }
    /// Phone number or e-mail address, without "/TYPE=PLMN" and angle brackets.
    QString getAddress() const { return m_address; }
    /// @copydoc getAddress
    void setAddress(const QString &address) { m_address = address; }

    /// True when both the name and the address are empty.
    bool isEmpty() const { return m_name.isEmpty() && m_address.isEmpty(); }

private:
    QString m_name;
    unsigned char m_type = Email;
    QString m_address;
};
