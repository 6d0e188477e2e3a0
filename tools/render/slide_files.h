/*
 * Writes the pictures of a message's slides, and contact sheets of them.
 */
#pragma once

#include "output/report.h"
#include "render/work.h"

#include <QImage>
#include <QString>

struct Message;

/// Sizes of the pictures in pixels; 0 stands for the default.
struct PictureSizes
{
    int scale = 0; ///< for one handset pixel
    int sheetWidth = 0;
};

/**
 * Writes a picture of every slide of @p message, and contact sheets of all slides, to the folder
 * @p directory. Replaces files of the same names. A text that does not fit into its slide is shown
 * below it on the sheet. Remarks on such texts and on what a limit left out. False, with the reason
 * in @p error, if a file cannot be written.
 */
bool writeSlides(const Message &message, const QString &directory, const PictureSizes &sizes,
                 const RenderLimits &limits, Report *report, QString *error);

/// The page of the first slide, scaled so that its longer side has @p size pixels. Null if there is
/// no slide or if it exceeds the limits.
QImage firstPage(const Message &message, int size, const RenderLimits &limits);

/// @p image as PNG; empty if there is not enough memory.
QByteArray pngOctets(const QImage &image);
