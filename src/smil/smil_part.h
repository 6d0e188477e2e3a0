/*
 * The part of a message that holds its presentation.
 */
#pragma once

#include <QByteArray>
#include <QString>

class MMS_COMP_SMILMultipart;

namespace SmilPart {

/// Stores @p smil in the SMIL part of @p multipart. If there is none, inserts a first part, named
/// @p location or similarly, and makes the message related.
void store(MMS_COMP_SMILMultipart *multipart, const QByteArray &smil, const QString &location);

} // namespace SmilPart
