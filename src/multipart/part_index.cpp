#include "multipart/part_index.h"

#include "base/no_memory.h"
#include "multipart/body_part.h"
#include "multipart/multipart.h"

PartIndex::PartIndex(const QPtrList<Part> &parts)
{
    m_locations.reserve(size_t(parts.count()));
    for (int place = 0; place < parts.count(); ++place) {
        Part *part = parts.at(place);
        const Reference::PartKeys keys(*part);
        if (!keys.location.isEmpty())
            m_locations.insert({keys.location, {place, part}});
        if (!keys.contentId.isEmpty())
            m_contentIds.insert({keys.contentId, {place, part}});
    }
}

PartIndex::Part *PartIndex::find(const QString &reference, int type) const
{
    const Entry *first = nullptr;
    const auto look = [&](const auto &names) {
        const auto [begin, end] = names.equal_range(reference);
        for (auto named = begin; named != end; ++named) {
            const Entry &entry = named->second;
            if (entry.part->getDispFileType() == type && (!first || entry.place < first->place))
                first = &entry;
        }
    };
    look(m_locations);
    if (!m_contentIds.empty())
        look(m_contentIds);
    return first ? first->part : nullptr;
}

PartIndexScope::PartIndexScope(MMS_COMP_SMILMultipart *multipart) : m_multipart(multipart)
{
    if (multipart) {
        asFarAsMemoryGoes(
            [multipart] { multipart->m_index = std::make_unique<PartIndex>(multipart->m_parts); });
    }
}

PartIndexScope::~PartIndexScope()
{
    if (m_multipart)
        m_multipart->m_index = nullptr;
}
