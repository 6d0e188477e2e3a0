/*
 * The parser of SMIL documents: reads a text with expat in one pass. Namespaces are not processed,
 * and nothing outside the text is ever loaded. Counts while it reads what the document costs.
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
