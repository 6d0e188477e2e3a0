/*
 * Ownership of the recipient entries.
 */
#include "platform/msg_header_base.h"

#include <memory>

namespace {

void appendCopy(QPtrList<MMS_UTIL_Entry> &list, const MMS_UTIL_Entry &entry)
{
    list.append(new MMS_UTIL_Entry(entry));
}

} // namespace

MMS_UTIL_MsgHeaderBase::MMS_UTIL_MsgHeaderBase()
{
    m_to.setAutoDelete(true);
    m_cc.setAutoDelete(true);
    m_bcc.setAutoDelete(true);
}

MMS_UTIL_MsgHeaderBase::~MMS_UTIL_MsgHeaderBase() = default;

void MMS_UTIL_MsgHeaderBase::addToRecipient(const MMS_UTIL_Entry &entry)
{
    appendCopy(m_to, entry);
}

void MMS_UTIL_MsgHeaderBase::addCcRecipient(const MMS_UTIL_Entry &entry)
{
    appendCopy(m_cc, entry);
}

void MMS_UTIL_MsgHeaderBase::addBccRecipient(const MMS_UTIL_Entry &entry)
{
    appendCopy(m_bcc, entry);
}
