/*
 * The parts of a message by their names, for operations that look up many references while neither
 * parts nor names change.
 */
#pragma once

#include "base/ptr_list.h"
#include "multipart/reference.h"

#include <unordered_map>

class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;

/// Gives the same answers as MMS_COMP_SMILMultipart::getBodyPartBySrc(), in time linear only in the
/// parts with the same name.
class PartIndex
{
public:
    using Part = MMS_COMP_SMILMultipartBodypart;

    explicit PartIndex(const QPtrList<Part> &parts);

    /// The first part with display file type @p type that @p reference matches, or null.
    Part *find(const QString &reference, int type) const;

private:
    struct Entry
    {
        int place;
        Part *part;
    };
    template <typename Hash, typename Equal>
    using Names = std::unordered_multimap<QString, Entry, Hash, Equal>;

    Names<Reference::LocationHash, Reference::LocationEqual> m_locations;
    Names<Reference::ContentIdHash, Reference::ContentIdEqual>
        m_contentIds; // parts with a key only
};

/**
 * While it exists, MMS_COMP_SMILMultipart::getBodyPartBySrc() takes the same time for any count of
 * parts. Names must not change meanwhile; changing the list of parts discards the index.
 */
class PartIndexScope
{
public:
    /// Linear in the parts. Does nothing for null.
    explicit PartIndexScope(MMS_COMP_SMILMultipart *multipart);
    PartIndexScope(const PartIndexScope &) = delete;
    PartIndexScope &operator=(const PartIndexScope &) = delete;
    ~PartIndexScope();

private:
    MMS_COMP_SMILMultipart *m_multipart;
};
