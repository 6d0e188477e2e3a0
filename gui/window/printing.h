/*
 * Prints the slides of a message.
 */
#pragma once

class QPrinter;
struct MessageSource;

/// Prints the slides of @p source, several on each sheet, with a title on the first. Any thread may
/// call it. False if the printer cannot be used.
bool printSlides(const MessageSource &source, QPrinter *printer);
