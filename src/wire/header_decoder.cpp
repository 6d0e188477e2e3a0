#include "wire/header_decoder.h"

#include "base/no_memory.h"
#include "wire/field_base.h"
#include "wire/header_fields.h"
#include "wire/header_record.h"
#include "wire/linear_buffer.h"
#include "wire/octets.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"

#include <algorithm>
#include <limits>
#include <span>

namespace {

// A header may repeat fields any number of times; a record has positions up to 24 only.
void storePosition(MMS_UA_UAMsg *msg, int code, int position)
{
    if (position <= std::numeric_limits<unsigned char>::max()) {
        msg->setFieldPosition(static_cast<unsigned char>(code),
                              static_cast<unsigned char>(position));
    }
}

// code ::= integer
// Fast path: nearly every code is a short integer.
[[nodiscard]] unsigned char readCode(LinearBuffer *buffer, int *code)
{
    unsigned char octet = 0;
    if (!buffer->readByte(&octet))
        return WireResult::OutOfData;
    if (!WireOctet::hasHighBit(octet)) {
        buffer->rewind(1);
        return IntegerBinary::readFrom(buffer, code);
    }
    *code = octet & WireOctet::LowSevenBits;
    return WireResult::Read;
}

} // namespace

MMS_UA_Decoder::MMS_UA_Decoder() = default;
MMS_UA_Decoder::~MMS_UA_Decoder() = default;

unsigned char MMS_UA_Decoder::decodeHeader(unsigned char *pdu, unsigned int &length,
                                           MMS_UA_UAMsg *msg)
{
    return unlessOutOfMemory(WireResult::BadArgument, [&]() -> unsigned char {
        if (!pdu || !msg)
            return WireResult::BadArgument;
        if (length > unsigned(std::numeric_limits<int>::max()))
            return WireResult::OutOfData;
        const int size = int(length);
        LinearBuffer buffer = LinearBuffer::forReading(pdu, size);
        const unsigned char result = readFields(&buffer, msg);
        if (result != WireResult::Read)
            return result;
        // A last text without its terminator leaves the cursor one octet past the end.
        const int bodyStart = std::min(buffer.getPosition(), size);
        msg->setBody(pdu + bodyStart);
        msg->setBodyLength(size - bodyStart);
        return WireResult::Read;
    });
}

unsigned char MMS_UA_Decoder::decodeHeader(const QByteArray &pdu, MMS_UA_UAMsg *msg)
{
    if (pdu.size() > std::numeric_limits<int>::max())
        return WireResult::OutOfData;
    auto *octets = reinterpret_cast<unsigned char *>(const_cast<char *>(pdu.constData()));
    auto length = static_cast<unsigned int>(pdu.size());
    return decodeHeader(octets, length, msg);
}

unsigned char MMS_UA_Decoder::readFields(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    const std::span<const HeaderFieldInfo> fields = headerFields();
    int code = 0;
    int previous = 0;
    int position = 0;
    while (buffer->hasMore() && code != HeaderFieldCode::ContentType) {
        if (const auto result = readCode(buffer, &code))
            return result;
        if (code < 1 || code > int(fields.size()))
            return WireResult::UnknownField;
        if (const auto result = fields[size_t(code - 1)].codec->readField(buffer, msg))
            return result;
        // Repeated fields, such as several To in a row, share a position.
        if (code != previous)
            storePosition(msg, code, ++position);
        previous = code;
    }
    return WireResult::Read;
}

FieldBase *MMS_UA_Decoder::selectReader(int code)
{
    const HeaderFieldInfo *field = headerFieldInfo(code);
    return field ? field->createCodec() : nullptr;
}
