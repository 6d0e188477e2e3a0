/*
 * Places the media of a slide on the page. All numbers are handset pixels.
 *
 * In the handset's layout, the text region and the image region are each as large as the page.
 * Therefore the media share the page in the order of the slide: a text after its picture is shown
 * below it. Regions of a sender's own layout keep their places.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QHash>
#include <QList>
#include <QRectF>
#include <QSize>

/// A media object and its place on the page.
struct PlacedObject
{
    const MMS_COMP_SMILMediaObject *object;
    QRectF area; ///< may reach beyond the page
    MMS_COMP_SMIL_REGION_FIT fit;
    bool sharesPage; ///< false if it has a region of the sender's own layout
};

/// Size of the page: the size of the root layout, within limits, or of the handset's page.
QSize pageSize(const MMS_COMP_SMILData &slides);

/// Scale of a page of the size @p page, relative to the handset's page; at least 1.
double pageUnit(const QSize &page);

/// The page of all slides of a presentation. The presentation must not change meanwhile.
class Page
{
public:
    explicit Page(const MMS_COMP_SMILData &slides);

    QSize size() const { return m_size; }
    /// Places the media objects of one slide.
    QList<PlacedObject> place(const QList<const MMS_COMP_SMILMediaObject *> &objects) const;

private:
    const MMS_COMP_SMILRegion *regionOf(const MMS_COMP_SMILMediaObject &object) const;
    QRectF areaOf(const MMS_COMP_SMILRegion &region) const;
    bool hasPlace(const MMS_COMP_SMILMediaObject &object) const;
    bool haveOwnRegions(const QList<const MMS_COMP_SMILMediaObject *> &objects) const;

    QSize m_size;
    QSizeF m_unit; ///< of the numbers of a region
    QHash<QString, const MMS_COMP_SMILRegion *> m_regions;
};
