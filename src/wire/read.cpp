#include "wire/read.h"

using namespace WireOctet;

std::optional<int> WireRead::uintvar(LinearBuffer *buffer)
{
    qint64 sum = 0;
    while (const auto next = octet(buffer)) {
        sum = (sum << 7) + withoutHighBit(*next);
        sum = std::min<qint64>(sum, std::numeric_limits<int>::max());
        if (!hasHighBit(*next))
            return int(sum);
    }
    return std::nullopt;
}

std::optional<int> WireRead::valueLength(LinearBuffer *buffer)
{
    const auto first = octet(buffer);
    if (first && *first > LengthFollows) {
        buffer->rewind(1);
        return std::nullopt;
    }
    return first ? lengthFrom(buffer, *first) : std::nullopt;
}
