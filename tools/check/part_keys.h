/*
 * The form of part names in which references are compared.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QString>

namespace Check {

/// A name or a reference without brackets and "cid:".
inline QString bareName(const QString &name)
{
    return MMS_COMP_SMILMultipart::parseCid(name.trimmed());
}

/// Names and references of the same part have the same key: the bare name in lower case. Empty for
/// a text that names no part.
inline QString partKey(const QString &name)
{
    return bareName(name).toLower();
}

} // namespace Check
