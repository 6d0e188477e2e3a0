/*
 * The octets of an edited message. The edited message itself does not change.
 */
#pragma once

#include "edit/edited_state.h"

#include <QByteArray>
#include <QString>

/// An encoded message, or the reason why there is none.
struct Outgoing
{
    QByteArray pdu;
    QString problem; ///< a sentence for people; empty on success
};

/// The message to save: without empty texts, with its slides as SMIL. Refuses a message without
/// recipients, content or with an empty slide, and one that would read back differently.
Outgoing encodeToSave(const EditedState &state);

/// A draft: recipients may be missing, and empty slides stay. Refuses only what has no form at all.
Outgoing encodeDraft(const EditedState &state);

/// Octets of the message as encodeToSave() encodes it, also while it is incomplete; 0 when it has
/// no form.
qint64 encodedSize(const EditedState &state);
