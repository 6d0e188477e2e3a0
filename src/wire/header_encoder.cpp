#include "wire/header_encoder.h"

#include "base/no_memory.h"
#include "wire/field_base.h"
#include "wire/header_fields.h"
#include "wire/header_record.h"
#include "wire/message_types.h"
#include "wire/wire_result.h"

#include <QScopeGuard>

#include <memory>

namespace {

std::span<const unsigned char> writeOrder(unsigned char type)
{
    const MessageTypeInfo *info = messageTypeInfo(type);
    return info ? info->writeOrder : std::span<const unsigned char>();
}

} // namespace

MMS_UA_Encoder::MMS_UA_Encoder() = default;
MMS_UA_Encoder::~MMS_UA_Encoder() = default;

unsigned char MMS_UA_Encoder::encodeHeader(MMS_UA_UAMsg *msg, unsigned char **out, int *outLength)
{
    return unlessOutOfMemory(WireResult::BadArgument, [&]() -> unsigned char {
        if (!msg || !out || !outLength)
            return WireResult::BadArgument;
        const int size = sizeOfEncodedHeader(msg);
        auto octets = std::make_unique<unsigned char[]>(size_t(size));
        const unsigned char result = encodeInto(octets.get(), size, msg->getMessageType());
        *outLength = size;
        *out = octets.release(); // now the caller owns the array
        return result;
    });
}

unsigned char MMS_UA_Encoder::encodeHeader(MMS_UA_UAMsg *msg, QByteArray *out)
{
    return unlessOutOfMemory(WireResult::BadArgument, [&]() -> unsigned char {
        if (!msg || !out)
            return WireResult::BadArgument;
        QByteArray octets(sizeOfEncodedHeader(msg), '\0');
        const unsigned char result = encodeInto(reinterpret_cast<unsigned char *>(octets.data()),
                                                int(octets.size()), msg->getMessageType());
        *out = octets;
        return result;
    });
}

unsigned char MMS_UA_Encoder::encodeInto(unsigned char *octets, int size, unsigned char type)
{
    const auto forgetArray = qScopeGuard([this] { m_buffer.reset(); });
    m_buffer.emplace(octets, size);
    return encodeByType(type);
}

int MMS_UA_Encoder::sizeOfEncodedHeader(MMS_UA_UAMsg *msg)
{
    return unlessOutOfMemory(0, [&]() -> int {
        if (!msg)
            return 0;
        m_message = msg;
        m_fieldsPresent = msg->getFieldsPresent();
        int size = 0;
        for (unsigned char code : writeOrder(msg->getMessageType()))
            size += sizeOfField(code);
        return size;
    });
}

unsigned char MMS_UA_Encoder::encodeByType(unsigned char type)
{
    unsigned char result = WireResult::Written;
    for (unsigned char code : writeOrder(type))
        result = encodeField(code);
    return result;
}

unsigned char MMS_UA_Encoder::encodeField(int code)
{
    const HeaderFieldInfo *field = headerFieldInfo(code);
    if (!field)
        return WireResult::CannotWrite;
    if (!isWritten(code))
        return WireResult::Written;
    if (!m_buffer)
        return WireResult::BadArgument;
    return field->codec->writeField(&*m_buffer, m_message);
}

int MMS_UA_Encoder::sizeOfField(int code)
{
    const HeaderFieldInfo *field = headerFieldInfo(code);
    return field && m_message && isWritten(code) ? field->codec->fieldSize(m_message) : 0;
}

FieldBase *MMS_UA_Encoder::selectWriter(int code)
{
    const HeaderFieldInfo *field = headerFieldInfo(code);
    return field ? field->createCodec() : nullptr;
}

bool MMS_UA_Encoder::isWritten(int code) const
{
    return code == HeaderFieldCode::MmsVersion || code == HeaderFieldCode::From
        || (m_fieldsPresent & headerFieldMask(static_cast<unsigned char>(code))) != 0;
}
