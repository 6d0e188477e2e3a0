#include "multipart/multipart_result.h"

#include <array>

namespace {

struct Meaning
{
    int code;
    const char *text;
};

constexpr std::array meanings{
    Meaning{MultipartResult::Ok, "done"},
    Meaning{MultipartResult::NullArgument, "no header or no multipart was given"},
    Meaning{MultipartResult::OutOfMemory, "out of memory"},
    Meaning{MultipartResult::CannotEncode, "the body cannot be encoded"},
    Meaning{MultipartResult::CannotDecode, "the body cannot be decoded"},
    Meaning{MultipartResult::UnknownCodecResult, "the codec gave an unknown result"},
    Meaning{MultipartResult::InsertionRefused, "the part was not inserted"},
    Meaning{MultipartResult::RemovalRefused, "there is no such part to remove"},
};

} // namespace

const char *MultipartResult::meaning(int code)
{
    for (const Meaning &row : meanings) {
        if (row.code == code)
            return row.text;
    }
    return "unknown result";
}
