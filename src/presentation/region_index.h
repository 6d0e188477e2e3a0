/*
 * The regions of a layout by their values, for operations that add many regions.
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

/// Hash for EqualRegions.
struct RegionHash
{
    // Deliberately not noexcept: libstdc++ then caches the hash codes in the nodes.
    std::size_t operator()(const MMS_COMP_SMILRegion *region) const;
};

/// Contains the first one of equal regions. The layout owns them.
class RegionIndex : public std::unordered_set<MMS_COMP_SMILRegion *, RegionHash, EqualRegions>
{
};

/**
 * While it exists, a layout finds equal regions without comparing all regions. Regions may be
 * appended meanwhile; nothing else about them may change.
 */
class RegionIndexScope
{
public:
    /// Linear in the regions of @p layout, which must not be null. A layout can have only one.
    explicit RegionIndexScope(MMS_COMP_SMILLayout *layout);
    RegionIndexScope(const RegionIndexScope &) = delete;
    RegionIndexScope &operator=(const RegionIndexScope &) = delete;
    ~RegionIndexScope();

private:
    MMS_COMP_SMILLayout *m_layout;
};
