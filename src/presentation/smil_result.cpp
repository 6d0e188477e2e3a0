#include "presentation/smil_result.h"

#include "base/code_meanings.h"

namespace {

constexpr CodeMeaning Meanings[]{
    {SmilResult::Ok, "read"},
    {SmilResult::NotAMedia, "not a media element"},
    {SmilResult::RegionRefused, "a region or meta element could not be added"},
    {SmilResult::NotInMessage, "the content is not in the message"},
    {SmilResult::FileUnreadable, "the file cannot be read"},
    {SmilResult::NullArgument, "there is nothing to read"},
    {SmilResult::RootLayoutRefused, "the root-layout was refused"},
    {SmilResult::NotWellFormed, "not well-formed, or beyond the limits of a document"},
    {SmilResult::NotSmil, "the document element is not smil"},
    {SmilResult::HeadAfterBody, "a head follows the body"},
    {SmilResult::SecondBody, "there is a second body"},
    {SmilResult::SecondHead, "there is a second head"},
    {SmilResult::OutOfMemory, "out of memory"},
    {SmilResult::NestedTooDeep, "par and seq are nested more than ten levels deep"},
};

} // namespace

const char *SmilResult::meaning(int code)
{
    return meaningOf(Meanings, code);
}
