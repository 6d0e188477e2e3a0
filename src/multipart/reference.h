/*
 * The rule by which a reference in a presentation, or a start parameter, matches a body part.
 */
#pragma once

#include <QString>

class MMS_COMP_SMILMultipartBodypart;

namespace Reference {

/**
 * What two Content-IDs are compared by: trimmed, without one leading "<", one trailing ">" and a
 * leading "cid:", in lower case. Empty for a text that matches no Content-ID.
 */
QString contentIdKey(const QString &text);

/// One reference, prepared for comparison with any number of parts.
class Matcher
{
public:
    explicit Matcher(const QString &reference);

    /// True when the reference equals the Content-ID, or the location as it stands ignoring case.
    bool matches(const MMS_COMP_SMILMultipartBodypart &part) const;

private:
    QString m_contentIdKey;
    QString m_location;
};

} // namespace Reference
