/*
 * Where the media of a slide stand on the page. All numbers are handset pixels.
 *
 * In the handset's own layout the text and the image region are each as large as the page, and what
 * stands in them shares the page in the order of the slide: a text behind its picture is shown below
 * it. Regions that a message kept as its sender drew them are taken as they are.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QList>
#include <QRectF>
#include <QSize>

/// A media object and its place on the page.
struct PlacedObject
{
    const MMS_COMP_SMILMediaObject *object;
    QRectF area; ///< may reach beyond the page
    MMS_COMP_SMIL_REGION_FIT fit;
    bool sharesPage; ///< it stands in no region of the sender's
};

/// Size of the page: the root layout's where that has one, within reason.
QSize pageSize(const MMS_COMP_SMILData &slides);

/// How many times as large as on the handset's own page things are on a page of the size @p page.
double pageUnit(const QSize &page);

/// Places @p objects, which are to be seen on one page.
QList<PlacedObject> placeObjects(const MMS_COMP_SMILData &slides,
                                 const QList<const MMS_COMP_SMILMediaObject *> &objects);
