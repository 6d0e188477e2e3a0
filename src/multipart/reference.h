/*
 * The rule by which a reference in a presentation, or a start parameter, matches a body part.
 */
#pragma once

#include "multipart/lower_case.h"

#include <QString>

class MMS_COMP_SMILMultipartBodypart;

namespace Reference {

/// @p reference without one leading "<", then one trailing ">", then a leading "cid:" in any case.
QStringView withoutBrackets(QStringView reference);

/**
 * What two Content-IDs are compared by, in lower case: trimmed and without brackets. Empty for a
 * text that matches no Content-ID.
 */
QStringView contentIdKey(QStringView text);

/// The names of a part that references match; empty where none does.
struct PartKeys
{
    explicit PartKeys(const MMS_COMP_SMILMultipartBodypart &part);

    QString location;
    QString contentId;
};

/// For tables of locations: what references match is equal.
struct LocationHash
{
    // Without noexcept, because the standard library keeps the hashes of such a table.
    std::size_t operator()(QStringView location) const { return hashInLowerCase(location); }
};
struct LocationEqual
{
    bool operator()(QStringView a, QStringView b) const { return isSameInLowerCase(a, b); }
};

/// For tables of Content-IDs, the same.
struct ContentIdHash
{
    std::size_t operator()(QStringView id) const { return hashInLowerCase(contentIdKey(id)); }
};
struct ContentIdEqual
{
    bool operator()(QStringView a, QStringView b) const
    {
        return isSameInLowerCase(contentIdKey(a), contentIdKey(b));
    }
};

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
