#include "wire/multipart_codec.h"

#include "multipart/multipart.h"
#include "platform/no_memory.h"
#include "platform/setting.h"
#include "wire/linear_buffer.h"
#include "wire/multipart_writer.h"
#include "wire/wire_result.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

constexpr int LargestSize = std::numeric_limits<int>::max();
constexpr qint64 RoomForHeaders = 4096;
// Two lengths of up to five octets and a value-length of up to six come with an entry's headers.
constexpr qint64 LongestEntryHead = MultipartWriter::LongestEntryHeaders + 16;

} // namespace

int MultipartWriter::capacityFor(const MMS_COMP_SMILMultipart &multipart)
{
    qint64 data = 0;
    for (int i = 0; i < multipart.getPartCount(); ++i)
        data += multipart.getBodypartByIndex(i)->getBodyDataLen();
    const qint64 sizeLimit = quint32(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024u;
    const qint64 allowed = std::max(sizeLimit, data + RoomForHeaders);
    // The count and one octet that stays unused; no body needs more, whatever is allowed.
    const qint64 needed = data + multipart.getPartCount() * LongestEntryHead + 2;
    const qint64 capacity = std::min(allowed, needed);
    return capacity <= LargestSize ? int(capacity) : 0;
}

unsigned char MultipartWriter::write(LinearBuffer *buffer, const MMS_COMP_SMILMultipart &multipart)
{
    buffer->appendByte(static_cast<unsigned char>(multipart.getPartCount()));
    for (int i = 0; i < multipart.getPartCount(); ++i) {
        const auto result = Multipart_Entry::writeTo(buffer, *multipart.getBodypartByIndex(i));
        if (result != WireResult::Written)
            return result;
    }
    return WireResult::Written;
}

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
