/** @file
 * File names and their extensions, as the composer handles them.
 */
#pragma once

#include "../base/export.h"

#include <QString>

/// Utilities of the composer: parts of file names, and extensions of MIME types.
class QVL_EXPORT MMS_COMP_Util
{
public:
    /// @p path without its directories: what stands behind the last "/".
    static QString stripePath(const QString &path);

    /**
     * The extension of @p name without its dot: what stands behind the last dot of the file name.
     * Empty when there is none, as in "a" and "a.". ".x" has the extension "x". A dot in the name
     * of a directory does not count.
     */
    static QString getExtName(const QString &name);

    /// @p name, directories included, without dot and extension; all of it when it has none.
    static QString getNoExtName(const QString &name);

    /**
     * The first file extension, without dot and in lower case, that the platform supports for the
     * MIME type, or "" when it knows none. The comparison ignores case.
     *
     * The host knows no extension for application/smil: a presentation is not a file that the
     * platform opens by itself, and a SMIL part without a name is called "file0".
     */
    static QString getFirstSupportExtNameByMIMEType(const QString &type, const QString &subtype);

    /**
     * The way back: puts the MIME type that files with the extension @p ext (without dot, in any
     * case) have into @p type and @p subtype. False, and nothing changed, when the platform knows
     * none. Only the host platform has this operation.
     */
    static bool getMIMETypeByExtName(const QString &ext, QString &type, QString &subtype);
};
