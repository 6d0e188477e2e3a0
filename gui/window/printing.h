/*
 * Prints the slides of a message.
 */
#pragma once

class QPrinter;
struct Message;

/// Prints the slides of @p message, several on each sheet, with a title on the first. False if
/// the printer cannot be used.
bool printSlides(const Message &message, QPrinter *printer);
