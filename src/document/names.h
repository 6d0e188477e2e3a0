/*
 * The names that the SMIL reader knows. Documents repeat names, so each name shares one text.
 */
#pragma once

#include <QString>

#include <span>
#include <string_view>

/// The name of an element or of an attribute.
struct SmilName
{
    std::string_view octets;
    QString text;
    bool isAttribute = false;
};

/// The names that the SMIL reader knows, sorted by length and then by octets.
std::span<const SmilName> smilNames();

/// @p name as a text; a name that the SMIL reader knows shares its text.
QString smilNameText(std::string_view name);
