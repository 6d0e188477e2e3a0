/*
 * The parts of a message as they were sent, and where they are.
 */
#pragma once

#include "check/findings.h"
#include "view/parts_view.h"

#include <QStringList>

namespace Check {

/// The parts as they were sent, beside those that the message has.
class SentBody
{
public:
    explicit SentBody(const Message &message);

    /// The part at @p index as it was sent; null for a body that is no multipart.
    const QvlScannedPart *part(int index) const;

    /// Where the part at @p index is; its name is the one that was sent.
    Place placeOf(int index) const;

private:
    const Message &m_message;
    SentParts m_parts;
    QStringList m_names; // found once: the headers of a part may be many
};

} // namespace Check
