/*
 * Suggests a known word for a mistyped one.
 */
#pragma once

#include <QString>
#include <QStringList>

/// The word in @p words that differs from @p word in the fewest letters; "" if none is close.
QString nearest(const QString &word, const QStringList &words);
