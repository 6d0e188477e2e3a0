/*
 * File names as texts. Linux takes any octets as a name. A text represents each octet that is not
 * UTF-8 by a lone surrogate, U+DC00 plus the octet, so that the same octets can be restored. No
 * UTF-8 decodes to such a surrogate.
 */
#pragma once

#include <QByteArray>
#include <QString>

namespace FileName {

/// The text for a name of these octets.
QString fromOctets(const QByteArray &octets);

/// The octets of the name @p text.
QByteArray toOctets(const QString &text);

/// The name of the file @p name in the folder @p folder.
QString inFolder(const QString &folder, const QString &name);

} // namespace FileName
