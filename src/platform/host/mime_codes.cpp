/*
 * Well-known media codes, looked up in one table both ways.
 */
#include "platform/mime_codes.h"

#include "platform/host/mime_code_table.h"

using namespace HostPlatform;

void MMS_UTIL_Common::mimeTypeGetName(unsigned char code, QString &type, QString &subtype)
{
    const bool assigned = code < mimeCodeTable.size();
    type = latin1(assigned ? mimeCodeTable[code].mediaType.type : "");
    subtype = latin1(assigned ? mimeCodeTable[code].mediaType.subtype : "");
}

unsigned char MMS_UTIL_Common::mimeTypeGetValue(const QString &type, const QString &subtype)
{
    const auto row = std::ranges::find_if(mimeCodeTable, [&](const MimeCodeRow &candidate) {
        return candidate.mediaType.matches(type, subtype);
    });
    return row == mimeCodeTable.end() ? UnknownMimeType : row->code;
}
