#include "commands/nearest.h"

#include <QList>

#include <algorithm>
#include <numeric>

namespace {

constexpr qsizetype MostChanges = 2; // in letters, as changesBetween() counts them

// Letters to add, remove or replace (Levenshtein), computed row by row.
qsizetype changesBetween(const QString &from, const QString &to)
{
    QList<qsizetype> changes(to.size() + 1);
    std::iota(changes.begin(), changes.end(), qsizetype(0));
    for (const QChar letter : from) {
        qsizetype before = changes[0]++;
        for (qsizetype i = 0; i < to.size(); ++i) {
            const qsizetype replaced = before + (letter == to[i] ? 0 : 1);
            before = changes[i + 1];
            changes[i + 1] = std::min({replaced, before + 1, changes[i] + 1});
        }
    }
    return changes.last();
}

} // namespace

QString nearest(const QString &word, const QStringList &words)
{
    QString best;
    qsizetype fewest = std::min(MostChanges, word.size() / 2) + 1;
    for (const QString &candidate : words) {
        const qsizetype changes = changesBetween(word, candidate);
        if (changes < fewest) {
            fewest = changes;
            best = candidate;
        }
    }
    return best;
}
