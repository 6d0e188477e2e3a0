/*
 * Values of the options of `qvlmms compose`: what a user types, as the library takes it. Each
 * reader gives nothing for a text that it does not understand.
 */
#pragma once

#include <qvlsmilparser.h>

#include <QDateTime>
#include <QString>

#include <optional>

namespace ComposeValues {

/// A phone number, digits that may follow a "+", or an e-mail address.
std::optional<MMS_UTIL_Entry> address(const QString &text);

/// Seconds above 0 of a number of days, hours, minutes or seconds: "7d", "12h", "30m", "90s", "90".
std::optional<int> seconds(const QString &text);

/// Milliseconds above 0 of a duration as SMIL has it, or of a number of seconds such as "2.5".
std::optional<int> milliseconds(const QString &text);

/// An ISO 8601 date and time, in local time unless it says otherwise, that the wire format can
/// hold.
std::optional<QDateTime> dateTime(const QString &text);

/// One of sixteen names, or "#rrggbb".
std::optional<MMS_COMP_COLOR> color(const QString &text);

/**
 * What to offer as the location of a part with the content of the file @p fileName: its last
 * component with "_" for characters that cannot stand in a SMIL value or may be cut in two.
 */
QString locationFor(const QString &fileName);

} // namespace ComposeValues
