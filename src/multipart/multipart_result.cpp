#include "multipart/multipart_result.h"

#include "base/code_meanings.h"

namespace {

constexpr CodeMeaning Meanings[]{
    {MultipartResult::Ok, "done"},
    {MultipartResult::NullArgument, "no header or no multipart was given"},
    {MultipartResult::OutOfMemory, "out of memory"},
    {MultipartResult::CannotEncode, "the body cannot be encoded"},
    {MultipartResult::CannotDecode, "the body cannot be decoded"},
    {MultipartResult::UnknownCodecResult, "the codec gave an unknown result"},
    {MultipartResult::InsertionRefused, "the part was not inserted"},
    {MultipartResult::RemovalRefused, "there is no such part to remove"},
};

} // namespace

const char *MultipartResult::meaning(int code)
{
    return meaningOf(Meanings, code);
}
