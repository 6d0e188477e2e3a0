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
    /// @p path without its directories: the text after the last "/".
    static QString stripePath(const QString &path);

    /**
     * The extension of @p name without its dot: the text after the last dot of the file name. Empty
     * when there is none, as in "a" and "a.". ".x" has the extension "x". A dot in the name of a
     * directory does not count.
     */
    static QString getExtName(const QString &name);

    /// @p name, including directories, without dot and extension; all of @p name when it has none.
    static QString getNoExtName(const QString &name);

    /**
     * The first file extension, without dot and in lower case, that the platform supports for the
     * MIME type, or "" for an unknown type. The comparison ignores case.
     *
     * The host has no extension for application/smil, because a presentation is not a file that the
     * platform opens by itself. A SMIL part without a name is therefore called "file0".
     */
    static QString getFirstSupportExtNameByMIMEType(const QString &type, const QString &subtype);

    /**
     * Looks up the MIME type of files with the extension @p ext (without dot, in any case) and
     * stores it in @p type and @p subtype. False, and nothing changed, for an unknown extension.
     * Only the host platform has this operation.
     */
    static bool getMIMETypeByExtName(const QString &ext, QString &type, QString &subtype);
};
