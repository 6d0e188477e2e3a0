/*
 * The problems of one message.
 */
#pragma once

#include "check/rules.h"

#include <QString>

#include <array>
#include <vector>

namespace Check {

/// Where a problem is.
struct Place
{
    qsizetype octet = -1; ///< from the beginning of the file; -1 when it is nowhere
    int part = -1; ///< index of the part; -1 when it is in none
    qint64 line = 0; ///< line of the SMIL, from 1; 0 when it is not there
    qint64 column = 0; ///< column of that line, from 1
    QString name = QString(); ///< of the field or the part; may be empty
};

/// A problem.
struct Finding
{
    Rule rule;
    Place place;
    QString problem; ///< a clause that says what is wrong

    Severity severity() const { return textOf(rule).severity; }
};

/// The problems of a message, in the order of the rules, and within a rule of the places.
class Findings
{
public:
    /// Most problems of one rule. Hostile messages have millions.
    static constexpr int MostOfRule = 20;

    /// Adds a problem, or only counts it when the rule has MostOfRule.
    void add(Rule rule, Place place, const QString &problem);

    /// Whether another problem of @p rule would be kept.
    bool takes(Rule rule) const { return m_counts[std::size_t(rule)] < MostOfRule; }
    bool has(Rule rule) const { return m_counts[std::size_t(rule)] > 0; }
    /// How many problems @p rule found, with those that are not kept.
    int count(Rule rule) const { return m_counts[std::size_t(rule)]; }
    /// How many problems of @p severity were found.
    int count(Severity severity) const;

    /// The problems that were kept.
    std::vector<Finding> inOrder() const;

private:
    std::vector<Finding> m_findings;
    std::array<int, std::size_t(Rule::UnreadableDuration) + 1> m_counts{};
};

} // namespace Check
