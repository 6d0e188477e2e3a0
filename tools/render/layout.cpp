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

const Region *findRegion(const MMS_COMP_SMILData &slides, const QString &id)
{
    for (unsigned int i = 0; i < slides.getRegionCount(); ++i) {
        if (slides.getRegion(i)->getId() == id)
            return slides.getRegion(i);
    }
    return nullptr;
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

QRectF areaOf(const MMS_COMP_SMILData &slides, const Region &region)
{
    const bool percent = slides.getLayoutMeasureUnit() == SMIL_UNIT_PERCENT;
    const QSizeF unit = percent ? QSizeF(pageSize(slides)) / 100 : QSizeF(1, 1);
    return QRectF(double(region.getLeft()) * unit.width(), double(region.getTop()) * unit.height(),
                  double(region.getWidth()) * unit.width(),
                  double(region.getHeight()) * unit.height());
}

// Null if the object has no region, or if a number of the region is not finite.
const Region *regionOf(const MMS_COMP_SMILData &slides, const Object &object)
{
    const Region *region = findRegion(slides, object.getRegionId());
    return region && isFinite(*region) ? region : nullptr;
}

bool hasPlaceOnPage(const MMS_COMP_SMILData &slides, const Object &object)
{
    const Region *region = regionOf(slides, object);
    const QRectF page(QPointF(0, 0), pageSize(slides));
    return region && region->getWidth() > 0 && region->getHeight() > 0 && !isHandsetRegion(*region)
        && page.intersects(areaOf(slides, *region));
}

bool haveOwnRegions(const MMS_COMP_SMILData &slides, const QList<const Object *> &objects)
{
    QSet<QString> ids;
    for (const Object *object : objects)
        ids.insert(object->getRegionId());
    return ids.size() == objects.size()
        && std::all_of(objects.begin(), objects.end(),
                       [&](const Object *object) { return hasPlaceOnPage(slides, *object); });
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

QList<PlacedObject> placeObjects(const MMS_COMP_SMILData &slides,
                                 const QList<const Object *> &objects)
{
    QList<PlacedObject> placed;
    const bool sharesPage = !haveOwnRegions(slides, objects);
    for (const Object *object : objects) {
        const Region *region = regionOf(slides, *object);
        placed += {object, region ? areaOf(slides, *region) : QRectF(),
                   region ? region->getFit() : SMIL_REGION_FIT_HIDDEN, sharesPage};
    }
    if (!sharesPage)
        return placed;
    const QSizeF page(pageSize(slides));
    const double share = page.height() / double(placed.size());
    for (qsizetype i = 0; i < placed.size(); ++i)
        placed[i].area = QRectF(0, double(i) * share, page.width(), share);
    return placed;
}
