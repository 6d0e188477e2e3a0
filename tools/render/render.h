/*
 * Draws slides as the handset would show them, with a strip below for their sounds and durations.
 */
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

struct Message;

/// Most picture pixels, in each direction, for one handset pixel.
constexpr int LargestScale = 8;

/**
 * Draws the slide at @p index with @p scale picture pixels for one handset pixel, or fewer when the
 * picture would be larger than any screen. Null when there is no such slide. Needs a
 * QGuiApplication.
 */
QImage renderSlide(const Message &message, unsigned int index, int scale);

/**
 * Writes a picture of every slide of @p message, and of all of them together, to files in the
 * folder @p directory. Replaces files of the same names. Adds a line to @p report for each file.
 * False, with the reason in @p error, when a file cannot be written.
 */
bool renderSlides(const Message &message, const QString &directory, int scale, QStringList *report,
                  QString *error);
