/*
 * A message on its way into octets, and whether they come back as the message.
 */
#pragma once

#include <QByteArray>
#include <QString>

class MMS_COMP_SMILData;
struct Message;

namespace Outgoing {

/// The SMIL text of @p slides, in which their page colours stay. Changes the params of their media.
QByteArray smilOf(MMS_COMP_SMILData *slides);

/// Header and body of @p message, whose content type is settled by that.
QByteArray pduOf(Message *message);

/**
 * Writes @p octets to the file @p fileName, or to standard output for "-". False, with the reason
 * in
 * @p error and the file as it was, when that cannot be done.
 */
bool write(const QByteArray &octets, const QString &fileName, QString *error);

/// What is read from the octets of @p sent in another way than it is in @p sent, or nothing.
QString whatChanges(const Message &sent);

} // namespace Outgoing
