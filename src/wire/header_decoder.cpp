#include "wire/header_decoder.h"

#include "platform/no_memory.h"
#include "wire/field_base.h"
#include "wire/header_fields.h"
#include "wire/header_record.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"

#include <algorithm>
#include <limits>

namespace {

// A header may repeat fields any number of times, while a record knows only positions up to 24.
void storePosition(MMS_UA_UAMsg *msg, int code, int position)
{
    if (position <= std::numeric_limits<unsigned char>::max()) {
        msg->setFieldPosition(static_cast<unsigned char>(code),
                              static_cast<unsigned char>(position));
    }
}

} // namespace

MMS_UA_Decoder::MMS_UA_Decoder() = default;
MMS_UA_Decoder::~MMS_UA_Decoder() = default;

unsigned char MMS_UA_Decoder::decodeHeader(unsigned char *pdu, unsigned int &length,
                                           MMS_UA_UAMsg *msg)
{
    return unlessOutOfMemory(WireResult::BadArgument, [&]() -> unsigned char {
        m_headerEnded = false;
        if (!pdu || !msg)
            return WireResult::BadArgument;
        if (length > unsigned(std::numeric_limits<int>::max()))
            return WireResult::OutOfData;
        const int size = int(length);
        m_buffer = LinearBuffer::forReading(pdu, size);
        m_message = msg;

        const unsigned char result = readFields();
        if (result != WireResult::Read)
            return result;
        // A last text without its terminator leaves the cursor one past the end.
        const int bodyStart = std::min(m_buffer->getPosition(), size);
        msg->setBody(pdu + bodyStart);
        msg->setBodyLength(size - bodyStart);
        m_buffer.reset();
        return WireResult::Read;
    });
}

unsigned char MMS_UA_Decoder::readFields()
{
    int previous = 0;
    int position = 0;
    while (m_buffer->hasMore() && !m_headerEnded) {
        int code = 0;
        if (const auto result = IntegerBinary::readFrom(&*m_buffer, &code))
            return result;
        if (const auto result = readField(code))
            return result;
        // Repeated fields, such as one To after the other, share a position.
        if (code != previous)
            storePosition(m_message, code, ++position);
        previous = code;
    }
    return WireResult::Read;
}

unsigned char MMS_UA_Decoder::readField(int code)
{
    m_headerEnded = code == HeaderFieldCode::ContentType;
    const HeaderFieldInfo *field = headerFieldInfo(code);
    return field ? field->codec->readField(&*m_buffer, m_message) : WireResult::UnknownField;
}

FieldBase *MMS_UA_Decoder::selectReader(int code)
{
    if (code == HeaderFieldCode::ContentType)
        m_headerEnded = true;
    const HeaderFieldInfo *field = headerFieldInfo(code);
    return field ? field->createCodec() : nullptr;
}
