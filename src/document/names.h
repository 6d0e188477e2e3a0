/*
 * The names that the reader of SMIL asks for. Documents repeat them, so each is one shared text.
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

/// The names that the reader asks for, sorted by length and then by octets.
std::span<const SmilName> smilNames();

/// @p name as a text, which is shared when the reader asks for this name.
QString smilNameText(std::string_view name);
