/*
 * The regions of a layout by their values, for operations that add many of them.
 */
#pragma once

#include <cstddef>
#include <unordered_set>

class MMS_COMP_SMILLayout;
class MMS_COMP_SMILRegion;

/// True when all six values are equal.
struct EqualRegions
{
    bool operator()(const MMS_COMP_SMILRegion *a, const MMS_COMP_SMILRegion *b) const;
};

/// Equal for equal regions.
struct RegionHash
{
    // Without noexcept, because the standard library keeps the hashes of such a table.
    std::size_t operator()(const MMS_COMP_SMILRegion *region) const;
};

/// Holds the first of equal regions. The layout owns them.
class RegionIndex : public std::unordered_set<MMS_COMP_SMILRegion *, RegionHash, EqualRegions>
{
};

/**
 * While it lives, a layout finds equal regions without comparing a region with all others. Regions
 * may be appended meanwhile, and nothing else about them may change.
 */
class RegionIndexScope
{
public:
    /// Linear in the regions of @p layout, which must not be null. At most one at a time.
    explicit RegionIndexScope(MMS_COMP_SMILLayout *layout);
    RegionIndexScope(const RegionIndexScope &) = delete;
    RegionIndexScope &operator=(const RegionIndexScope &) = delete;
    ~RegionIndexScope();

private:
    MMS_COMP_SMILLayout *m_layout;
};
