/*
 * Converts the values of the options of `qvlmms compose` to types of the library. Each reader
 * returns nothing for a text that it does not understand.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QDateTime>
#include <QString>

#include <optional>

namespace ComposeValues {

/// True for a text on one line: without control characters, and without octets that are not
/// UTF-8, and without U+FFFD, by which other programs replace such octets.
bool isLine(QStringView text);

/// True for a line without embeddings, overrides and isolates of the writing direction. They make
/// "gpj.exe" look like "exe.jpg".
bool isName(QStringView text);

/// A phone number, digits that may follow a "+", or an e-mail address.
std::optional<MMS_UTIL_Entry> address(const QString &text);

/// Converts days, hours, minutes or seconds to seconds above 0: "7d", "12h", "30m", "90s", "90".
std::optional<int> seconds(const QString &text);

/// Converts a SMIL duration, or seconds such as "2.5", to milliseconds above 0.
std::optional<int> milliseconds(const QString &text);

/// An ISO 8601 date and time that the wire format can represent. Local time unless it has a zone.
std::optional<QDateTime> dateTime(const QString &text);

/// One of sixteen names, or "#rrggbb".
std::optional<MMS_COMP_COLOR> color(const QString &text);

/**
 * The location for a part with the content of the file @p fileName: its last component, which is a
 * name, with "_" for characters that a SMIL value cannot have or that shortening would split.
 */
QString locationFor(const QString &fileName);

} // namespace ComposeValues
