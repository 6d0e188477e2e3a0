/*
 * The index of regions by their values finds the same region as a comparison with all.
 */
#include "presentation/region_index.h"

#include "presentation/layout.h"

#include <gtest/gtest.h>

TEST(RegionIndexScope, FindsTheFirstOfEqualRegions)
{
    MMS_COMP_SMILLayout layout;
    layout.getRegionList()->append(nullptr);
    MMS_COMP_SMILRegion *first = layout.appendRegion(-0.0F, 0, 120, 160, "hidden", "a");
    const RegionIndexScope index(&layout);
    EXPECT_EQ(layout.appendRegion(0.0F, 0, 120, 160, "hidden", "a"), first);
    MMS_COMP_SMILRegion *other = layout.appendRegion(0, 0, 120, 160, "hidden", "A");
    EXPECT_NE(other, first);
    EXPECT_EQ(layout.appendRegion(0, 0, 120, 160, "hidden", "A"), other);
}
