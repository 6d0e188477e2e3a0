/*
 * Address entry of a message: a sender or a recipient.
 */
#pragma once

#include "platform/export.h"

#include <QString>

/// One address: a display name, the kind of address and the address itself.
class QVL_EXPORT MMS_UTIL_Entry
{
public:
    /// Kinds of address, as the header field codecs use them.
    enum Type : unsigned char {
        Email = 0, ///< e-mail address, or anything else that is no phone number
        Plmn = 1, ///< phone number; on the wire it ends in "/TYPE=PLMN"
        Absent = 2, ///< stands for a sender who was not named
    };

    /// An empty entry of type Email.
    MMS_UTIL_Entry() = default;
    MMS_UTIL_Entry(QString name, unsigned char type, QString address);

    QString getName() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    unsigned char getType() const { return m_type; }
    void setType(unsigned char type) { m_type = type; }
    QString getAddress() const { return m_address; }
    void setAddress(const QString &address) { m_address = address; }

    /// True when both the name and the address are empty.
    bool isEmpty() const { return m_name.isEmpty() && m_address.isEmpty(); }

private:
    QString m_name;
    unsigned char m_type = Email;
    QString m_address;
};
