#include "wire/wire_result.h"

#include <array>

namespace {

struct Meaning
{
    unsigned char code;
    const char *text;
};

constexpr std::array meanings{
    Meaning{WireResult::Read, "decoded"},
    Meaning{WireResult::BadArgument, "no data or no record was given"},
    Meaning{WireResult::UnknownField, "unknown header field"},
    Meaning{WireResult::UnsupportedContentType, "unsupported content type"},
    Meaning{WireResult::OutOfData, "the data ran out or a length cannot be right"},
    Meaning{WireResult::Written, "encoded"},
    Meaning{WireResult::CannotWrite, "a value cannot be written or the output is full"},
};

} // namespace

const char *WireResult::meaning(unsigned char code)
{
    for (const Meaning &row : meanings) {
        if (row.code == code)
            return row.text;
    }
    return "unknown result";
}
