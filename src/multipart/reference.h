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
 * The part of a Content-ID that is compared, in lower case: trimmed and without brackets. Empty for
 * a text that matches no Content-ID.
 */
QStringView contentIdKey(QStringView text);

/// The names of a part that references can match; empty if none can.
struct PartKeys
{
    explicit PartKeys(const MMS_COMP_SMILMultipartBodypart &part);

    QString location;
    QString contentId;
};

/// For tables of locations: locations that the same references match are equal.
struct LocationHash
{
    // Deliberately not noexcept: libstdc++ then caches the hash codes in the nodes.
    std::size_t operator()(QStringView location) const { return hashInLowerCase(location); }
};
struct LocationEqual
{
    bool operator()(QStringView a, QStringView b) const { return isSameInLowerCase(a, b); }
};

/// Likewise for tables of Content-IDs.
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

/// One reference, prepared for comparison with any number of parts. The reference must outlive it.
class Matcher
{
public:
    explicit Matcher(const QString &reference)
        : m_reference(reference), m_contentIdKey(contentIdKey(reference))
    {
    }
    explicit Matcher(QString &&reference) = delete;

    /// True when the reference equals the Content-ID, or the location ignoring case.
    bool matches(const MMS_COMP_SMILMultipartBodypart &part) const;

private:
    QStringView m_reference;
    QStringView m_contentIdKey;
};

} // namespace Reference
