/*
 * The form of part names in which references are compared.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QString>

namespace Check {

/// Names and references of the same part have the same key: without brackets and "cid:", and in
/// lower case. Empty for a text that names no part.
inline QString partKey(const QString &name)
{
    return MMS_COMP_SMILMultipart::parseCid(name.trimmed()).toLower();
}

} // namespace Check
