#include "presentation/layout.h"

#include "base/no_memory.h"
#include "base/tables.h"
#include "document/element.h"
#include "presentation/region_index.h"
#include "presentation/smil_values.h"

#include <QDomElement>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Indexed by MMS_COMP_SMIL_REGION_FIT.
constexpr std::array FitKeywords{"hidden"_L1, "fill"_L1, "meet"_L1, "scroll"_L1, "slice"_L1};
static_assert(FitKeywords.size() == SMIL_REGION_FIT_UNKNOWN);

} // namespace

bool MMS_COMP_SMILRegion::setHeight(float height)
{
    m_height = height;
    return true;
}

bool MMS_COMP_SMILRegion::setWidth(float width)
{
    m_width = width;
    return true;
}

bool MMS_COMP_SMILRegion::setTop(float top)
{
    m_top = top;
    return true;
}

bool MMS_COMP_SMILRegion::setLeft(float left)
{
    m_left = left;
    return true;
}

bool MMS_COMP_SMILRegion::setId(const QString &id)
{
    m_id = id;
    return true;
}

bool MMS_COMP_SMILRegion::setFit(const QString &keyword)
{
    m_fit = MMS_COMP_SMIL_REGION_FIT(placeOf(FitKeywords, keyword));
    return true;
}

const char *MMS_COMP_SMILRegion::fitKeyword(MMS_COMP_SMIL_REGION_FIT fit)
{
    return fit >= 0 && fit < SMIL_REGION_FIT_UNKNOWN ? FitKeywords[size_t(fit)].data() : nullptr;
}

bool MMS_COMP_SMILRootLayout::setWidth(int width)
{
    m_width = width;
    return true;
}

bool MMS_COMP_SMILRootLayout::setHeight(int height)
{
    m_height = height;
    return true;
}

void MMS_COMP_SMILRootLayout::setBackgroundColor(const QString &text)
{
    SmilValues::readColor(text, m_backgroundColor);
}

MMS_COMP_SMILLayout::MMS_COMP_SMILLayout()
{
    m_regions.setAutoDelete(true);
    asFarAsMemoryGoes([this] { m_rootLayout = std::make_unique<MMS_COMP_SMILRootLayout>(); });
}

MMS_COMP_SMILLayout::~MMS_COMP_SMILLayout() = default;

MMS_COMP_SMILRootLayout *MMS_COMP_SMILLayout::setRootLayout(int width, int height)
{
    return unlessOutOfMemory(nullptr, [&]() -> MMS_COMP_SMILRootLayout * {
        if (!m_rootLayout)
            m_rootLayout = std::make_unique<MMS_COMP_SMILRootLayout>();
        m_rootLayout->setWidth(width);
        m_rootLayout->setHeight(height);
        return m_rootLayout.get();
    });
}

int MMS_COMP_SMILLayout::setRootLayout(QDomElement *element)
{
    return unlessOutOfMemory(RootLayoutRefused, [&]() -> int {
        return element ? readRootLayout(SmilDocument(*element).root()) : RootLayoutRefused;
    });
}

int MMS_COMP_SMILLayout::readRootLayout(const SmilElement &element)
{
    MMS_COMP_SMILRootLayout *rootLayout = setRootLayout(pixelsOf(element.attribute(u"width")),
                                                        pixelsOf(element.attribute(u"height")));
    rootLayout->setBackgroundColor(element.attribute(u"background-color"));
    return 0;
}

MMS_COMP_SMILRegion *MMS_COMP_SMILLayout::getRegion(unsigned int index) const
{
    return index < getRegionCount() ? m_regions.at(int(index)) : nullptr;
}

void MMS_COMP_SMILLayout::append(std::unique_ptr<MMS_COMP_SMILRegion> region)
{
    MMS_COMP_SMILRegion *added = region.release();
    m_regions.append(added);
    if (m_index)
        m_index->insert(added);
}

void MMS_COMP_SMILLayout::appendRegion(MMS_COMP_SMILRegion *region)
{
    asFarAsMemoryGoes([&] {
        if (region && !findEqual(*region))
            append(std::unique_ptr<MMS_COMP_SMILRegion>(region));
    });
}

MMS_COMP_SMILRegion *MMS_COMP_SMILLayout::appendRegion(float left, float top, float width,
                                                       float height, const QString &fit,
                                                       const QString &id)
{
    return unlessOutOfMemory(nullptr, [&]() -> MMS_COMP_SMILRegion * {
        auto region = std::make_unique<MMS_COMP_SMILRegion>();
        region->setTop(top);
        region->setLeft(left);
        region->setWidth(width);
        region->setHeight(height);
        region->setFit(fit);
        region->setId(id);
        MMS_COMP_SMILRegion *added = region.get();
        if (MMS_COMP_SMILRegion *existing = findEqual(*added))
            return existing;
        append(std::move(region));
        return added;
    });
}

MMS_COMP_SMILRegion *MMS_COMP_SMILLayout::findEqual(const MMS_COMP_SMILRegion &region) const
{
    if (m_index) {
        const auto found = m_index->find(const_cast<MMS_COMP_SMILRegion *>(&region));
        return found != m_index->end() ? *found : nullptr;
    }
    const auto found = std::ranges::find_if(m_regions, [&](const MMS_COMP_SMILRegion *other) {
        return other && RegionIndex::key_equal()(&region, other);
    });
    return found != m_regions.end() ? *found : nullptr;
}

bool MMS_COMP_SMILLayout::isRegionExist(const MMS_COMP_SMILRegion *region,
                                        MMS_COMP_SMILRegion **found) const
{
    if (!region)
        return false;
    MMS_COMP_SMILRegion *existing = findEqual(*region);
    if (found)
        *found = existing;
    return existing;
}

void MMS_COMP_SMILLayout::addRegionsOf(const MMS_COMP_SMILLayout &source)
{
    asFarAsMemoryGoes([&] {
        const RegionIndexScope index(this);
        for (int i = 0, count = source.m_regions.count(); i < count; ++i) {
            const MMS_COMP_SMILRegion *region = source.m_regions.at(i);
            if (region && !findEqual(*region))
                append(std::make_unique<MMS_COMP_SMILRegion>(*region));
        }
    });
}

QString MMS_COMP_SMILLayout::withoutPixelUnit(const QString &text)
{
    return SmilValues::withoutPixelUnit(text);
}

int MMS_COMP_SMILLayout::pixelsOf(const QString &text)
{
    return SmilValues::pixelsOf(text);
}

bool MMS_COMP_SMILMeta::setName(const QString &name)
{
    m_name = name;
    return true;
}

bool MMS_COMP_SMILMeta::setContent(const QString &content)
{
    m_content = content;
    return true;
}
