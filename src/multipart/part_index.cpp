#include "multipart/part_index.h"

#include "multipart/body_part.h"
#include "multipart/reference.h"

PartIndex::PartIndex(const QPtrList<Part> &parts)
{
    m_locations.reserve(size_t(parts.count()));
    for (int place = 0; place < parts.count(); ++place) {
        Part *part = parts.at(place);
        if (!part)
            continue;
        m_locations.insert({part->getContentLocation().toLower(), {place, part}});
        const QString contentId = part->getContentID().toLower();
        if (const QStringView key = Reference::contentIdKey(contentId); !key.isEmpty())
            m_contentIds.insert({key.toString(), {place, part}});
    }
}

PartIndex::Part *PartIndex::find(const QString &reference, int type) const
{
    const Entry *first = nullptr;
    const auto look = [&](const Names &names, QStringView name) {
        const auto [begin, end] = names.equal_range(name);
        for (auto named = begin; named != end; ++named) {
            const Entry &entry = named->second;
            if (entry.part->getDispFileType() == type && (!first || entry.place < first->place))
                first = &entry;
        }
    };
    const QString lower = reference.toLower();
    look(m_locations, lower);
    if (!m_contentIds.empty())
        look(m_contentIds, Reference::contentIdKey(lower));
    return first ? first->part : nullptr;
}
