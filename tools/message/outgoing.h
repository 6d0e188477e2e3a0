/*
 * Encodes a message: its slides as SMIL, its header and body as a PDU.
 */
#pragma once

#include <QByteArray>
#include <QString>

class MMS_COMP_SMILData;
struct Message;

namespace Outgoing {

/// The SMIL text of @p slides, with their page colors. Changes the params of their media.
QByteArray smilOf(MMS_COMP_SMILData *slides);

/// Header and body of @p message. Encoding the body sets the content type in the header.
QByteArray pduOf(Message *message);

} // namespace Outgoing
