/*
 * Whether the readers of Qt may be given a picture.
 */
#pragma once

#include <QByteArray>

/**
 * True if the reader that Qt chooses for @p octets only reads octets. Readers of documents, such as
 * SVG, open files that the picture names, and may compute without end. Does not decode anything.
 */
bool isRasterPicture(const QByteArray &octets);
