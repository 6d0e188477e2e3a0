/*
 * The parser of SMIL documents: reads a text with expat in one pass and limits its cost. It does
 * not process namespaces and never loads anything outside the text.
 */
#pragma once

#include "document/element.h"

#include <QByteArrayView>

#include <optional>

namespace DocumentParser {

/// The document of a text in UTF-8, whatever encoding it declares, or nothing when the text is not
/// well-formed or beyond the limits (limits.h). Throws std::bad_alloc.
[[nodiscard]] std::optional<SmilDocument> parse(QByteArrayView utf8);

} // namespace DocumentParser
