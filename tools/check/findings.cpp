#include "check/findings.h"

#include <algorithm>
#include <utility>

namespace Check {

void Findings::add(Rule rule, Place place, const QString &problem)
{
    if (takes(rule))
        m_findings.push_back({rule, std::move(place), problem});
    ++m_counts[std::size_t(rule)];
}

int Findings::count(Severity severity) const
{
    int count = 0;
    for (const RuleText &text : rules()) {
        if (text.severity == severity)
            count += m_counts[std::size_t(text.rule)];
    }
    return count;
}

std::vector<Finding> Findings::inOrder() const
{
    std::vector<Finding> findings = m_findings;
    std::ranges::stable_sort(findings, {}, &Finding::rule);
    return findings;
}

} // namespace Check
