/*
 * Parts of file names. Only "/" separates directories, as on the handset.
 */
#include "platform/comp_util.h"

namespace {

constexpr QLatin1Char Separator('/');
constexpr qsizetype NoExtension = -1;

// Where the dot before the extension stands. A dot at the end begins none, and neither does one in
// a directory's name.
qsizetype extensionDot(const QString &name)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    const bool hasExtension = dot > name.lastIndexOf(Separator) && dot + 1 < name.size();
    return hasExtension ? dot : NoExtension;
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
