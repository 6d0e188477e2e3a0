/*
 * Address entry of a message.
 */
#include "platform/entry.h"

#include <utility>

MMS_UTIL_Entry::MMS_UTIL_Entry(QString name, unsigned char type, QString address)
    : m_name(std::move(name)), m_type(type), m_address(std::move(address))
{
}
