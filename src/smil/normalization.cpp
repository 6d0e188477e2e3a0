/*
 * Normalization: the handset shows every message in one layout, a text region above an image
 * region, and converts other layouts to it. When the id of a region changes, its objects get the
 * new id.
 */
#include "smil/smil_parser.h"

#include "base/no_memory.h"
#include "presentation/handset.h"
#include "presentation/presentation.h"

#include <algorithm>
#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

bool hasNullRegion(MMS_COMP_SMILLayout &layout)
{
    const auto &regions = *layout.getRegionList();
    return std::ranges::find(regions, nullptr) != regions.end();
}

void append(MMS_COMP_SMILData *data, const QvlHandsetRegion &own)
{
    // Fails only with an exception.
    std::ignore = data->appendRegion(own.left, own.top, own.width, own.height, u"hidden"_s, own.id);
}

// Updates the objects first, because they are found by the region's old id.
void rename(MMS_COMP_SMILData *data, MMS_COMP_SMILRegion *region, const QString &id)
{
    MMS_COMP_SMILParser::updateObjectRegionId(data, region->getId(), id);
    region->setId(id);
}

void turnInto(MMS_COMP_SMILData *data, MMS_COMP_SMILRegion *region, const QvlHandsetRegion &own)
{
    region->setLeft(own.left);
    region->setWidth(own.width);
    region->setTop(own.top);
    region->setHeight(own.height);
    rename(data, region, own.id);
}

bool isAtOrBehind(float start, float end)
{
    constexpr double tolerance = 0.01;
    return double(start) - double(end) >= -tolerance;
}

// The left one of two regions should be the text region, else the upper one, else the first one.
// But only two regions side by side in the wrong order swap; a second region above the first
// changes nothing. Kept: stored messages have this layout.
bool isSecondTheText(const MMS_COMP_SMILRegion &first, const MMS_COMP_SMILRegion &second)
{
    return !isAtOrBehind(second.getLeft(), first.getRight())
        && !isAtOrBehind(second.getTop(), first.getBottom())
        && isAtOrBehind(first.getLeft(), second.getRight());
}

void normalizeTwo(MMS_COMP_SMILData *data)
{
    MMS_COMP_SMILRegion *first = data->getRegion(0);
    MMS_COMP_SMILRegion *second = data->getRegion(1);
    const bool swapped = isSecondTheText(*first, *second);
    turnInto(data, swapped ? second : first, QvlHandset::textRegion());
    turnInto(data, swapped ? first : second, QvlHandset::imageRegion());
}

// The first region, except @p except, whose id contains one of two words.
std::optional<unsigned int> findById(const MMS_COMP_SMILData &data, QLatin1StringView word,
                                     QLatin1StringView otherWord,
                                     std::optional<unsigned int> except)
{
    for (unsigned int i = 0; i < data.getRegionCount(); ++i) {
        const QString id = data.getRegion(i)->getId();
        if (i != except
            && (id.contains(word, Qt::CaseInsensitive)
                || id.contains(otherWord, Qt::CaseInsensitive)))
            return i;
    }
    return std::nullopt;
}

void nameTwoOfMany(MMS_COMP_SMILData *data)
{
    const unsigned int text = findById(*data, "txt"_L1, "text"_L1, std::nullopt).value_or(0);
    rename(data, data->getRegion(text), QvlHandset::textRegion().id);
    const unsigned int neighbor = text + 1 < data->getRegionCount() ? text + 1 : text - 1;
    const unsigned int image = findById(*data, "img"_L1, "image"_L1, text).value_or(neighbor);
    rename(data, data->getRegion(image), QvlHandset::imageRegion().id);
}

} // namespace

int MMS_COMP_SMILParser::updateToCorvaneRegion(MMS_COMP_SMILData *data)
{
    return unlessOutOfMemory(0, [&]() -> int {
        if (!data || hasNullRegion(*data->getLayout()))
            return 0;
        switch (data->getRegionCount()) {
        case 0:
            append(data, QvlHandset::textRegion());
            append(data, QvlHandset::imageRegion());
            break;
        case 1: // keeps its position
            data->getRegion(0)->setWidth(QvlHandset::textRegion().width);
            data->getRegion(0)->setHeight(QvlHandset::textRegion().height);
            rename(data, data->getRegion(0), QvlHandset::textRegion().id);
            append(data, QvlHandset::imageRegion());
            break;
        case 2:
            normalizeTwo(data);
            break;
        default:
            nameTwoOfMany(data);
        }
        return 1;
    });
}

void MMS_COMP_SMILParser::updateToCorvaneRootLayout(MMS_COMP_SMILData *data)
{
    if (data)
        // Null only when memory runs out.
        std::ignore = data->setRootLayout(QvlHandset::ScreenWidth, QvlHandset::ScreenHeight);
}

void MMS_COMP_SMILParser::updateObjectRegionId(MMS_COMP_SMILData *data, const QString &oldId,
                                               const QString &newId)
{
    if (!data)
        return;
    for (unsigned int slide = 0; slide < data->getTotalSlidesNum(); ++slide) {
        for (unsigned int i = 0; i < data->getMediaObjectCount(slide); ++i) {
            MMS_COMP_SMILMediaObject *object = data->getMediaObject(slide, i);
            if (object->getRegionId() == oldId)
                object->setRegionId(newId);
        }
    }
}
