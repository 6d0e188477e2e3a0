/*
 * The text of a document in a file: which encoding its octets are in.
 */
#pragma once

#include <QByteArray>

#include <optional>

namespace DocumentEncoding {

/**
 * The text of @p file in UTF-8. The encoding is that of its byte order mark or of its zero octets,
 * or else the declared one if Qt can convert it, or else UTF-8. Nothing when the octets are not in
 * that encoding.
 */
[[nodiscard]] std::optional<QByteArray> toUtf8(const QByteArray &file);

} // namespace DocumentEncoding
