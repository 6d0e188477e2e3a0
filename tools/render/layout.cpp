#include "render/layout.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Region = MMS_COMP_SMILRegion;

constexpr QSize HandsetPage(QvlHandset::ScreenWidth, QvlHandset::ScreenHeight);
constexpr int LongestPageSide = 2048;

int side(int given, int usual)
{
    return given < 1 ? usual : std::min(given, LongestPageSide);
}

bool isFinite(const Region &region)
{
    return std::isfinite(region.getLeft()) && std::isfinite(region.getTop())
        && std::isfinite(region.getWidth()) && std::isfinite(region.getHeight());
}

// Ignores the unit: a layout in percent has the same numbers for the handset's regions.
bool isHandsetRegion(const Region &region)
{
    const QRectF numbers(double(region.getLeft()), double(region.getTop()),
                         double(region.getWidth()), double(region.getHeight()));
    const QRectF text(QPointF(0, 0), HandsetPage);
    return numbers == text || numbers == text.translated(0, HandsetPage.height());
}

} // namespace

QSize pageSize(const MMS_COMP_SMILData &slides)
{
    const MMS_COMP_SMILRootLayout *root = slides.getRootLayout();
    if (!root)
        return HandsetPage;
    return {side(root->getWidth(), HandsetPage.width()),
            side(root->getHeight(), HandsetPage.height())};
}

double pageUnit(const QSize &page)
{
    return std::max(1.0,
                    std::min(double(page.width()) / HandsetPage.width(),
                             double(page.height()) / HandsetPage.height()));
}

Page::Page(const MMS_COMP_SMILData &slides)
    : m_size(pageSize(slides)),
      m_unit(slides.getLayoutMeasureUnit() == SMIL_UNIT_PERCENT ? QSizeF(m_size) / 100
                                                                : QSizeF(1, 1))
{
    for (unsigned int i = 0; i < slides.getRegionCount(); ++i) {
        const Region *region = slides.getRegion(i);
        if (const QString id = region->getId(); !m_regions.contains(id))
            m_regions.insert(id, region);
    }
}

QRectF Page::areaOf(const Region &region) const
{
    return QRectF(
        double(region.getLeft()) * m_unit.width(), double(region.getTop()) * m_unit.height(),
        double(region.getWidth()) * m_unit.width(), double(region.getHeight()) * m_unit.height());
}

// Null if the object has no region, or if a number of the region is not finite.
const Region *Page::regionOf(const Object &object) const
{
    const Region *region = m_regions.value(object.getRegionId());
    return region && isFinite(*region) ? region : nullptr;
}

bool Page::hasPlace(const Object &object) const
{
    const Region *region = regionOf(object);
    return region && region->getWidth() > 0 && region->getHeight() > 0 && !isHandsetRegion(*region)
        && QRectF(QPointF(0, 0), m_size).intersects(areaOf(*region));
}

bool Page::haveOwnRegions(const QList<const Object *> &objects) const
{
    QSet<QString> ids;
    for (const Object *object : objects)
        ids.insert(object->getRegionId());
    return ids.size() == objects.size()
        && std::all_of(objects.begin(), objects.end(),
                       [&](const Object *object) { return hasPlace(*object); });
}

QList<PlacedObject> Page::place(const QList<const Object *> &objects) const
{
    QList<PlacedObject> placed;
    const bool sharesPage = !haveOwnRegions(objects);
    for (const Object *object : objects) {
        const Region *region = regionOf(*object);
        placed += {object, region ? areaOf(*region) : QRectF(),
                   region ? region->getFit() : SMIL_REGION_FIT_HIDDEN, sharesPage};
    }
    if (!sharesPage)
        return placed;
    const double share = double(m_size.height()) / double(placed.size());
    for (qsizetype i = 0; i < placed.size(); ++i)
        placed[i].area = QRectF(0, double(i) * share, m_size.width(), share);
    return placed;
}
