/*
 * The part of a message that holds its presentation.
 */
#pragma once

#include <QByteArray>
#include <QString>

class MMS_COMP_SMILMultipart;

namespace SmilPart {

/// Puts @p smil into the SMIL part of @p multipart. Without one inserts a first part, named
/// @p location or like it, and makes the message a related one.
void store(MMS_COMP_SMILMultipart *multipart, const QByteArray &smil, const QString &location);

} // namespace SmilPart
