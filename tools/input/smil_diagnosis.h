/*
 * Finds out where a SMIL text is not well-formed. The library reports only that it is not; another
 * parser finds the place.
 */
#pragma once

#include "input/smil_text.h"

#include <optional>

/// Where and why a text is not well-formed.
struct SmilMistake
{
    SmilText::Place place;
    QString reason;

    /// Such as "line 3, column 7: ...".
    QString text() const;
};

/**
 * The first mistake in @p smil; nothing if it is well-formed. Also nothing if it declares entities
 * or attributes, because expanding them may take long.
 */
std::optional<SmilMistake> findMistake(const QByteArray &smil);

/// The first mistake for an XML reader that reads all octets of @p smil in their encoding. Nothing
/// if there is none, or the text has declarations.
std::optional<SmilMistake> findXmlMistake(const QByteArray &smil);
