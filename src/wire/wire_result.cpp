#include "wire/wire_result.h"

#include "base/code_meanings.h"

namespace {

constexpr CodeMeaning meanings[]{
    {WireResult::Read, "decoded"},
    {WireResult::BadArgument, "no data or no record was given"},
    {WireResult::UnknownField, "unknown header field"},
    {WireResult::UnsupportedContentType, "unsupported content type"},
    {WireResult::OutOfData, "the data ran out or a length cannot be right"},
    {WireResult::Written, "encoded"},
    {WireResult::CannotWrite, "a value cannot be written or the output is full"},
};

} // namespace

const char *WireResult::meaning(unsigned char code)
{
    return meaningOf(meanings, code);
}
