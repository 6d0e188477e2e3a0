/*
 * Well-known media codes, looked up in one table both ways.
 */
#include "platform/mime_codes.h"

#include "platform/host/mime_code_table.h"

#include <algorithm>
#include <vector>

using namespace HostPlatform;

namespace {

struct Names
{
    QString type;
    QString subtype;
};

// Made once, so that the parts of all messages share them.
const Names &namesOf(unsigned char code)
{
    static const std::vector<Names> names = [] {
        std::vector<Names> made;
        for (const MimeCodeRow &row : mimeCodeTable)
            made.push_back({latin1(row.mediaType.type), latin1(row.mediaType.subtype)});
        made.push_back({latin1(""), latin1("")}); // of every code that is not assigned
        return made;
    }();
    return names[std::min<size_t>(code, mimeCodeTable.size())];
}

} // namespace

void MMS_UTIL_Common::mimeTypeGetName(unsigned char code, QString &type, QString &subtype)
{
    type = namesOf(code).type;
    subtype = namesOf(code).subtype;
}

unsigned char MMS_UTIL_Common::mimeTypeGetValue(const QString &type, const QString &subtype)
{
    const auto row = std::ranges::find_if(mimeCodeTable, [&](const MimeCodeRow &candidate) {
        return candidate.mediaType.matches(type, subtype);
    });
    return row == mimeCodeTable.end() ? UnknownMimeType : row->code;
}
