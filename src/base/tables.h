/*
 * Lookups in tables by linear search, because the library's tables are short.
 */
#pragma once

#include <algorithm>
#include <functional>
#include <ranges>

/// The index of the first row of @p table whose @p key equals @p wanted, or the count of rows.
template <typename Table, typename Wanted, typename Key = std::identity>
constexpr int placeOf(const Table &table, const Wanted &wanted, Key key = {})
{
    const auto row = std::ranges::find_if(
        table, [&](const auto &candidate) { return candidate == wanted; }, key);
    return int(row - std::ranges::begin(table));
}

/// The first row of @p table whose @p key equals @p wanted, or null.
template <typename Table, typename Wanted, typename Key = std::identity>
constexpr auto *rowOf(const Table &table, const Wanted &wanted, Key key = {})
{
    const auto place = std::size_t(placeOf(table, wanted, key));
    return place < std::ranges::size(table) ? &table[place] : nullptr;
}
