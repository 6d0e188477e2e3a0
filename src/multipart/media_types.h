/*
 * Media types that the library itself writes and recognizes. Their texts are constants, so that
 * using one allocates nothing.
 */
#pragma once

#include <QString>

namespace MediaTypes {

/// Main type of every body.
inline QString application()
{
    return QStringLiteral("application");
}

/// Subtype of a body with a presentation.
inline QString related()
{
    return QStringLiteral("vnd.wap.multipart.related");
}

/// Subtype of a body without a presentation.
inline QString mixed()
{
    return QStringLiteral("vnd.wap.multipart.mixed");
}

/// True for a body of parts. Those of e-mail stand for those of WAP: a PDU has no other.
inline bool isMultipart(const QString &type, const QString &subtype)
{
    return subtype.startsWith(QLatin1String("vnd.wap.multipart."), Qt::CaseInsensitive)
        || type.compare(QLatin1String("multipart"), Qt::CaseInsensitive) == 0;
}

/// Media type of a presentation.
inline QString smil()
{
    return QStringLiteral("application/smil");
}

} // namespace MediaTypes
