/*
 * Sizes as the user writes them: octets, or units of 1,024 octets and its powers.
 */
#pragma once

#include <QString>

#include <optional>

/// The octets that @p text stands for: "1000", "300k", "64M", "1G". Nothing for another text, and
/// for sizes that are 0 or above LargestSizeLimit.
std::optional<qint64> sizeFrom(const QString &text);

/// Writes @p octets in the largest unit that fits.
QString sizeText(qint64 octets);
