/*
 * A message for a thread that prints or exports it.
 */
#pragma once

#include "check/findings.h"
#include "input/message.h"

/// What makes the message again. Only one thread may use a message.
struct MessageSource
{
    QByteArray pdu;
    QString fileName;
    Check::Findings findings;

    /// The message, which knows only the last part of its file name: whoever gets the page does not
    /// need the folders.
    std::unique_ptr<Message> decode() const;
};
