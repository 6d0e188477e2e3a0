#include "wire/multipart_codec.h"

#include "base/no_memory.h"
#include "multipart/multipart.h"
#include "wire/linear_buffer.h"
#include "wire/multipart_entry.h"
#include "wire/multipart_writer.h"
#include "wire/wire_result.h"

#include <limits>
#include <memory>
#include <new>

using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

constexpr int LargestSize = std::numeric_limits<int>::max();

} // namespace

unsigned char MMS_UA_MultiPart_CODEC::encodeMultipart(bool, MMS_COMP_SMILMultipart *multipart,
                                                      unsigned char **out, unsigned int *outLength)
{
    return unlessOutOfMemory(WireResult::CannotWrite, [&]() -> unsigned char {
        if (!multipart || !out || !outLength)
            return WireResult::BadArgument;
        const int capacity = MultipartWriter::capacityFor(*multipart);
        *out = capacity > 0 ? new (std::nothrow) unsigned char[size_t(capacity)] : nullptr;
        if (!*out)
            return WireResult::CannotWrite;
        LinearBuffer buffer(*out, capacity);
        const unsigned char result = MultipartWriter::write(&buffer, *multipart);
        if (result != WireResult::Written)
            return result;
        *outLength = unsigned(buffer.getPosition());
        return buffer.hasMore() ? WireResult::Written : WireResult::CannotWrite;
    });
}

unsigned char MMS_UA_MultiPart_CODEC::decodeMultipart(bool, const unsigned char *data,
                                                      unsigned int length,
                                                      MMS_COMP_SMILMultipart *multipart)
{
    return unlessOutOfMemory(WireResult::BadArgument, [&]() -> unsigned char {
        if (!multipart)
            return WireResult::BadArgument;
        if (!data || length == 0 || length > unsigned(LargestSize))
            return WireResult::OutOfData;
        LinearBuffer buffer = LinearBuffer::forReading(data, int(length));
        for (int left = buffer.readByte(); left > 0; --left) {
            auto part = std::make_unique<Part>();
            if (const auto result = Multipart_Entry::readFrom(&buffer, part.get()))
                return result;
            multipart->appendBodypart(part.release());
        }
        return WireResult::Read;
    });
}
