/*
 * The parts of a message by the names that references call them, for operations that look for many
 * of them while neither parts nor names change.
 */
#pragma once

#include "base/ptr_list.h"
#include "multipart/reference.h"

#include <unordered_map>

class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;

/// Answers as MMS_COMP_SMILMultipart::getBodyPartBySrc() does, in a time that depends on the parts
/// of the same name alone.
class PartIndex
{
public:
    using Part = MMS_COMP_SMILMultipartBodypart;

    explicit PartIndex(const QPtrList<Part> &parts);

    /// The first part of display file type @p type that @p reference matches, or null.
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
    Names<Reference::ContentIdHash, Reference::ContentIdEqual> m_contentIds; // of keys not empty
};

/**
 * While it lives, MMS_COMP_SMILMultipart::getBodyPartBySrc() takes the same time however many parts
 * there are. A change of the list of parts ends that; names must not change meanwhile.
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
