/*
 * Prints the slides of a message, and exports it as a page.
 */
#pragma once

#include "check/findings.h"

#include <QString>

class QPrinter;
struct Message;

/// Prints the slides of @p message, several on each sheet, with a title on the first. False if
/// the printer cannot be used.
bool printSlides(const Message &message, QPrinter *printer);

/// Writes @p message as the page @p fileName, as `qvlmms html` does. False, with the reason in
/// @p error, if it cannot be written.
bool exportPage(const Message &message, const Check::Findings &findings, const QString &fileName,
                QString *error);
