/*
 * Table of the names, with a binary search.
 */
#include "document/names.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// Compares lengths first, because most comparisons end there.
bool isBefore(std::string_view a, std::string_view b)
{
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

} // namespace

std::span<const SmilName> smilNames()
{
    static const std::array table{SmilName{"id", u"id"_s, true},
                                  SmilName{"alt", u"alt"_s, true},
                                  SmilName{"dur", u"dur"_s, true},
                                  SmilName{"end", u"end"_s, true},
                                  SmilName{"fit", u"fit"_s, true},
                                  SmilName{"img", u"img"_s},
                                  SmilName{"par", u"par"_s},
                                  SmilName{"ref", u"ref"_s},
                                  SmilName{"seq", u"seq"_s},
                                  SmilName{"src", u"src"_s, true},
                                  SmilName{"top", u"top"_s, true},
                                  SmilName{"body", u"body"_s},
                                  SmilName{"head", u"head"_s},
                                  SmilName{"left", u"left"_s, true},
                                  SmilName{"meta", u"meta"_s},
                                  SmilName{"name", u"name"_s, true},
                                  SmilName{"smil", u"smil"_s},
                                  SmilName{"text", u"text"_s},
                                  SmilName{"type", u"type"_s, true},
                                  SmilName{"audio", u"audio"_s},
                                  SmilName{"begin", u"begin"_s, true},
                                  SmilName{"param", u"param"_s},
                                  SmilName{"value", u"value"_s, true},
                                  SmilName{"video", u"video"_s},
                                  SmilName{"width", u"width"_s, true},
                                  SmilName{"height", u"height"_s, true},
                                  SmilName{"layout", u"layout"_s},
                                  SmilName{"region", u"region"_s, true},
                                  SmilName{"content", u"content"_s, true},
                                  SmilName{"valuetype", u"valuetype"_s, true},
                                  SmilName{"root-layout", u"root-layout"_s},
                                  SmilName{"background-color", u"background-color"_s, true}};
    return table;
}

QString smilNameText(std::string_view name)
{
    const auto names = smilNames();
    const auto found = std::ranges::lower_bound(names, name, isBefore, &SmilName::octets);
    if (found != names.end() && found->octets == name)
        return found->text;
    return QString::fromUtf8(name.data(), qsizetype(name.size()));
}
