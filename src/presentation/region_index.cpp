#include "presentation/region_index.h"

#include "base/no_memory.h"
#include "presentation/layout.h"

#include <QHash>

#include <utility>

bool EqualRegions::operator()(const MMS_COMP_SMILRegion *a, const MMS_COMP_SMILRegion *b) const
{
    return a->getWidth() == b->getWidth() && a->getHeight() == b->getHeight()
        && a->getTop() == b->getTop() && a->getLeft() == b->getLeft() && a->getId() == b->getId()
        && a->getFit() == b->getFit();
}

std::size_t RegionHash::operator()(const MMS_COMP_SMILRegion *region) const
{
    return qHashMulti(QHashSeed::globalSeed(), region->getWidth(), region->getHeight(),
                      region->getTop(), region->getLeft(), region->getId(), region->getFit());
}

RegionIndexScope::RegionIndexScope(MMS_COMP_SMILLayout *layout) : m_layout(layout)
{
    asFarAsMemoryGoes([layout] {
        auto index = std::make_unique<RegionIndex>();
        for (MMS_COMP_SMILRegion *region : layout->m_regions) {
            if (region)
                index->insert(region);
        }
        layout->m_index = std::move(index);
    });
}

RegionIndexScope::~RegionIndexScope()
{
    m_layout->m_index = nullptr;
}
