/*
 * One message for the list, read in two steps: the header alone, then the whole message.
 */
#pragma once

#include "list/entry.h"

#include <QString>

/// What the list says of a message.
struct LoadedMessage
{
    MessageList::Entry entry; ///< without slides, parts and state unless the message is whole
    bool isWhole = false;
    QString texts; ///< of the slides, for the filter; at most MostTexts characters

    static constexpr qsizetype MostTexts = 2000;
};

/// Reads and decodes only the header of the message in the file @p name.
LoadedMessage loadHeader(const QString &name);

/// Reads the whole message in the file @p name.
LoadedMessage loadWhole(const QString &name);
