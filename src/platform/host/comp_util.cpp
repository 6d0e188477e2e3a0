/*
 * Parts of file names, and the file extensions of media types. Only "/" separates directories, as
 * on the handset.
 */
#include "platform/comp_util.h"

#include "platform/host/mime_extension_table.h"

#include <vector>

using namespace HostPlatform;

namespace {

constexpr QLatin1Char Separator('/');
constexpr qsizetype NoExtension = -1;

// Index of the dot before the extension. Neither a dot at the end nor one in a directory's name
// begins an extension.
qsizetype extensionDot(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    const bool hasExtension = dot > name.lastIndexOf(Separator) && dot + 1 < name.size();
    return hasExtension ? dot : NoExtension;
}

// Built once and shared by the names of all parts.
const QString &preferredExtension(const MimeExtensionRow &row)
{
    static const std::vector<QString> texts = [] {
        std::vector<QString> made;
        for (const MimeExtensionRow &each : mimeExtensionTable)
            made.emplace_back(latin1(each.extensions.preferred()));
        return made;
    }();
    return texts[size_t(&row - mimeExtensionTable.data())];
}

} // namespace

QString MMS_COMP_Util::stripePath(const QString &path)
{
    return path.sliced(path.lastIndexOf(Separator) + 1);
}

QString MMS_COMP_Util::getExtName(const QString &name)
{
    const qsizetype dot = extensionDot(name);
    return dot == NoExtension ? QStringLiteral("") : name.sliced(dot + 1);
}

QString MMS_COMP_Util::getNoExtName(const QString &name)
{
    const qsizetype dot = extensionDot(name);
    return dot == NoExtension ? name : name.first(dot);
}

QString MMS_COMP_Util::getFirstSupportExtNameByMIMEType(const QString &type, const QString &subtype)
{
    const auto row =
        std::ranges::find_if(mimeExtensionTable, [&](const MimeExtensionRow &candidate) {
            return candidate.mediaType.matches(type, subtype);
        });
    const bool named = row != mimeExtensionTable.end() && row->naming == Naming::ByExtension;
    return named ? preferredExtension(*row) : QString(latin1(""));
}

bool MMS_COMP_Util::getMIMETypeByExtName(const QString &ext, QString &type, QString &subtype)
{
    if (ext.isEmpty())
        return false;
    const auto row =
        std::ranges::find_if(mimeExtensionTable, [&](const MimeExtensionRow &candidate) {
            return std::ranges::any_of(candidate.extensions.all, [&](std::string_view extension) {
                return isSameToken(ext, extension);
            });
        });
    if (row == mimeExtensionTable.end())
        return false;
    type = latin1(row->mediaType.type);
    subtype = latin1(row->mediaType.subtype);
    return true;
}
