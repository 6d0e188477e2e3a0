/*
 * The names that are already taken in a message. The first candidate is compared with the parts;
 * then the names are indexed, so that naming many parts does not walk all parts for every
 * candidate. Names cannot be given back: an index exists for one naming pass.
 */
#pragma once

#include "multipart/reference.h"

#include <QHash>
#include <QString>

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <memory_resource>
#include <unordered_set>
#include <utility>

class MMS_COMP_SMILMultipart;
class MMS_COMP_SMILMultipartBodypart;

/// Index of locations and Content-IDs. Gives the same answers as
/// MMS_COMP_SMILMultipart::isPartExist().
class PartNames
{
public:
    PartNames() = default;
    /// Index of all parts of @p multipart, which must outlive it.
    explicit PartNames(const MMS_COMP_SMILMultipart &multipart) : m_unindexed(&multipart) { }

    /// False for a name that no part may have, whatever the names of the others.
    static bool isUsable(const QString &name);

    /// Makes the names of @p part taken.
    void add(const MMS_COMP_SMILMultipartBodypart &part);
    /// Makes the names of all parts of @p multipart taken.
    void add(const MMS_COMP_SMILMultipart &multipart);
    /// Makes @p name taken in exactly this spelling.
    void addExact(const QString &name) { m_exact.insert(name); }

    /// Implement createUniqueAttchmentLocation(), createUniqueLocation() and createUniqueSrc(). The
    /// result is then taken.
    QString uniqueAttachmentLocation(const QString &ext);
    QString uniqueLocation(const QString &name);
    QString uniqueSource(const QString &name);

private:
    bool isTakenByUnindexedPart(const QString &name);
    [[nodiscard]] bool take(const QString &name);
    QString takeFirstFree(const QString &prefix, const QString &ext);
    QString takeItselfOrNumbered(const QString &candidate, const QString &base, const QString &ext);

    // Seeded at every start, unlike std::hash, so that nobody can choose names that collide.
    struct ExactHash
    {
        std::size_t operator()(const QString &name) const
        {
            return qHash(name, QHashSeed::globalSeed());
        }
    };
    template <typename Hash, typename Equal>
    using Names = std::pmr::unordered_set<QString, Hash, Equal>;

    const MMS_COMP_SMILMultipart *m_unindexed = nullptr;
    bool m_wasWalked = false;
    std::array<std::byte, 2048> m_firstMemory; // enough for most messages
    // Frees all memory at once at the end: benchmark growth/parts, name a new one.
    std::pmr::monotonic_buffer_resource m_memory{m_firstMemory.data(), m_firstMemory.size()};
    Names<Reference::LocationHash, Reference::LocationEqual> m_locations{&m_memory};
    Names<Reference::ContentIdHash, Reference::ContentIdEqual> m_contentIds{&m_memory};
    Names<ExactHash, std::equal_to<>> m_exact{&m_memory};
    // By the text before the number and the extension after it. All lower numbers are taken.
    std::pmr::map<std::pair<QString, QString>, int> m_nextNumber{&m_memory};
};
