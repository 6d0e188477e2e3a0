#include "wire/header_record.h"

#include "wire/header_field_codes.h"
#include "wire/message_types.h"

#include <algorithm>

namespace {

constexpr int HighestPosition = 24;
constexpr auto leadingFields = std::to_array<unsigned char>(
    {HeaderFieldCode::MessageType, HeaderFieldCode::TransactionId, HeaderFieldCode::MmsVersion});

} // namespace

MMS_UA_UAMsg::MMS_UA_UAMsg() = default;
MMS_UA_UAMsg::~MMS_UA_UAMsg() = default;

unsigned char MMS_UA_UAMsg::getFieldPosition(unsigned char code) const
{
    return code < m_fieldPositions.size() ? m_fieldPositions[code] : 0;
}

void MMS_UA_UAMsg::setFieldPosition(unsigned char code, unsigned char position)
{
    if (code < m_fieldPositions.size() && position >= 1 && position <= HighestPosition)
        m_fieldPositions[code] = position;
}

bool MMS_UA_UAMsg::mandatoryFldsPresentInPDU() const
{
    const MessageTypeInfo *type = messageTypeInfo(getMessageType());
    return !type || fieldsPresent(type->mandatoryFields);
}

bool MMS_UA_UAMsg::pduOrderCheck() const
{
    int expected = 1;
    for (unsigned char code : leadingFields) {
        if (!fieldsPresent(headerFieldMask(code)))
            continue;
        if (m_fieldPositions[code] != expected)
            return false;
        ++expected;
    }
    if (!fieldsPresent(headerFieldMask(HeaderFieldCode::ContentType)))
        return true;
    // Codes 0 and 25 have a slot but are not header fields.
    const auto fieldsMet = std::count_if(m_fieldPositions.begin() + 1, m_fieldPositions.end() - 1,
                                         [](unsigned char position) { return position != 0; });
    return m_fieldPositions[HeaderFieldCode::ContentType] == fieldsMet;
}
