#include "wire/multipart_writer.h"

#include "multipart/multipart.h"
#include "platform/setting.h"
#include "wire/append.h"
#include "wire/multipart_entry.h"
#include "wire/wire_result.h"

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 LargestCapacity = std::numeric_limits<int>::max();
constexpr qint64 RoomForHeaders = 4096;
// The head of an entry also has two lengths of up to five octets and a value-length of up to six.
constexpr qint64 LongestEntryHead = Multipart_Entry::LongestHeaders + 16;

} // namespace

int MultipartWriter::capacityFor(const MMS_COMP_SMILMultipart &multipart)
{
    qint64 data = 0;
    for (int i = 0; i < multipart.getPartCount(); ++i)
        data += multipart.getBodypartByIndex(i)->getBodyDataLen();
    const qint64 sizeLimit = quint32(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024u;
    const qint64 allowed = std::max(sizeLimit, data + RoomForHeaders);
    // The count, plus one octet that stays unused. A body never needs more, even if more is
    // allowed.
    const qint64 needed = data + multipart.getPartCount() * LongestEntryHead + 2;
    const qint64 capacity = std::min(allowed, needed);
    return capacity <= LargestCapacity ? int(capacity) : 0;
}

unsigned char MultipartWriter::write(LinearBuffer *buffer, const MMS_COMP_SMILMultipart &multipart)
{
    WireAppend::octet(buffer, static_cast<unsigned char>(multipart.getPartCount()));
    for (int i = 0; i < multipart.getPartCount(); ++i) {
        const auto result = Multipart_Entry::writeTo(buffer, *multipart.getBodypartByIndex(i));
        if (result != WireResult::Written)
            return result;
    }
    return WireResult::Written;
}
