/*
 * The rule by which a reference in a presentation, or a start parameter, matches a body part.
 */
#pragma once

#include <QString>

class MMS_COMP_SMILMultipartBodypart;

namespace Reference {

/// @p reference without one leading "<", then one trailing ">", then a leading "cid:" in any case.
QStringView withoutBrackets(QStringView reference);

/**
 * What two Content-IDs are compared by, in lower case: trimmed and without brackets. Empty for a
 * text that matches no Content-ID. The key of a text in lower case is the key in lower case.
 */
QStringView contentIdKey(QStringView text);

/// One reference, prepared for comparison with any number of parts. It has to outlive this.
class Matcher
{
public:
    explicit Matcher(const QString &reference)
        : m_reference(reference), m_contentIdKey(contentIdKey(reference))
    {
    }
    explicit Matcher(QString &&reference) = delete;

    /// True when the reference equals the Content-ID, or the location as it stands ignoring case.
    bool matches(const MMS_COMP_SMILMultipartBodypart &part) const;

private:
    QStringView m_reference;
    QStringView m_contentIdKey;
};

} // namespace Reference
