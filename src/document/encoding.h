/*
 * Finds the encoding of a document's file and converts its text to UTF-8.
 */
#pragma once

#include <QByteArray>

#include <optional>

namespace DocumentEncoding {

/**
 * The text of @p file in UTF-8; nothing when the octets are invalid in their encoding. A byte order
 * mark or zero octets determine the encoding. Otherwise it is the declared one if Qt can convert
 * it, else UTF-8.
 */
[[nodiscard]] std::optional<QByteArray> toUtf8(const QByteArray &file);

} // namespace DocumentEncoding
