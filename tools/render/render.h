/*
 * Slides as pictures: what the handset would show, and below the page what it would play and for
 * how long.
 */
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

struct Message;

/// Most picture pixels that one handset pixel takes.
constexpr int LargestScale = 8;

/**
 * The slide at @p index, one handset pixel being @p scale picture pixels, or fewer where the page
 * is so large that the picture would be larger than any screen. Null when there is no such slide.
 * Needs a QGuiApplication.
 */
QImage renderSlide(const Message &message, unsigned int index, int scale);

/**
 * Writes a picture of every slide of @p message, and of all of them together, to files in the
 * folder @p directory. Files of the same names are replaced. Adds a line to @p report for each
 * file; false, with the reason in @p error, when one cannot be written.
 */
bool renderSlides(const Message &message, const QString &directory, int scale, QStringList *report,
                  QString *error);
