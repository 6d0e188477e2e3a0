/*
 * What somebody who mistyped a word may have meant.
 */
#pragma once

#include <QString>
#include <QStringList>

/// The one of @p words that is the fewest letters away from @p word, if it is close; else "".
QString nearest(const QString &word, const QStringList &words);
