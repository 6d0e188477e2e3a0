/*
 * Renders slides as the handset would show them, with their audio and duration in a strip below.
 */
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

struct Message;

/// Most picture pixels, in each direction, for one handset pixel.
constexpr int LargestScale = 8;

/**
 * Renders the slide at @p index with @p scale picture pixels for one handset pixel, or fewer if the
 * picture would be larger than any screen. Null if there is no such slide. Needs a
 * QGuiApplication.
 */
QImage renderSlide(const Message &message, unsigned int index, int scale);

/**
 * Writes a picture of every slide of @p message, and contact sheets of all slides, to the folder
 * @p directory. Replaces files of the same names. Adds a line to @p report for each file. False,
 * with the reason in @p error, if a file cannot be written.
 */
bool renderSlides(const Message &message, const QString &directory, int scale, QStringList *report,
                  QString *error);
