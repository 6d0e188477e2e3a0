/*
 * Well-known media codes: lookups in both directions in one table.
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

// Built once and shared by the parts of all messages.
const Names &namesOf(unsigned char code)
{
    static const std::vector<Names> names = [] {
        std::vector<Names> made;
        for (const MimeCodeRow &row : mimeCodeTable)
            made.push_back({latin1(row.mediaType.type), latin1(row.mediaType.subtype)});
        made.push_back({latin1(""), latin1("")}); // for all unassigned codes
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
