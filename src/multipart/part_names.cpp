#include "multipart/part_names.h"

#include "base/decimal.h"
#include "multipart/multipart.h"
#include "platform/comp_util.h"

#include <QUrl>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int LocationLimit = 100; // locations are shorter
constexpr int LongestBaseAndExtension = 88; // leaves room for a number and two dots

constexpr QLatin1StringView Renamed = "renamed"_L1;

template <typename Base>
QString withExtension(const Base &base, const QString &ext)
{
    return ext.isEmpty() ? QString(base) : base + u'.' + ext;
}

QString numbered(const QString &prefix, int number, const QString &ext)
{
    const QvlDecimal decimal(number);
    return withExtension(prefix + decimal.text(), ext);
}

QString withoutAmpersand(QString name)
{
    return name.remove(u'&');
}

// Fast path: a name of only these characters is always a valid URL. Benchmark
// message/decode/nameless.
bool isUrl(const QString &name)
{
    const auto isPlain = [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')
            || c == u'.' || c == u'_' || c == u'-';
    };
    return (!name.isEmpty() && std::ranges::all_of(name, isPlain)) || QUrl(name).isValid();
}

// A file name, its base and its extension.
struct NameParts
{
    explicit NameParts(const QString &name)
        : fileName(MMS_COMP_Util::stripePath(name)), base(MMS_COMP_Util::getNoExtName(fileName)),
          ext(MMS_COMP_Util::getExtName(fileName))
    {
    }

    // Truncates the base if it and the extension are too long; false if they were not.
    bool cutBase()
    {
        if (base.size() + ext.size() <= LongestBaseAndExtension)
            return false;
        base.truncate(std::max<qsizetype>(LongestBaseAndExtension - ext.size(), 0));
        return true;
    }

    QString fileName;
    QString base;
    QString ext;
};

} // namespace

bool PartNames::isUsable(const QString &name)
{
    return name.size() < LocationLimit && isUrl(name);
}

void PartNames::add(const MMS_COMP_SMILMultipartBodypart &part)
{
    const Reference::PartKeys keys(part);
    if (!keys.location.isEmpty())
        m_locations.insert(keys.location);
    if (!keys.contentId.isEmpty())
        m_contentIds.insert(keys.contentId);
}

void PartNames::add(const MMS_COMP_SMILMultipart &multipart)
{
    m_locations.reserve(size_t(multipart.getPartCount()));
    for (int i = 0; i < multipart.getPartCount(); ++i)
        add(*multipart.getBodypartByIndex(i));
}

// Looks for the first name in the parts themselves: most messages have at most one nameless part,
// and building an index for one name costs more than a walk.
bool PartNames::isTakenByUnindexedPart(const QString &name)
{
    if (m_unindexed && m_wasWalked)
        add(*std::exchange(m_unindexed, nullptr));
    m_wasWalked = true;
    return m_unindexed && m_unindexed->isPartExist(name);
}

// False, without a change, when the name is already taken.
bool PartNames::take(const QString &name)
{
    if (!m_exact.empty() && m_exact.contains(name))
        return false;
    if (isTakenByUnindexedPart(name))
        return false;
    if (!m_contentIds.empty() && m_contentIds.contains(name))
        return false;
    return m_locations.insert(name).second;
}

// Takes the first free name of prefix0.ext, prefix1.ext, ...; a null text when the pattern itself
// makes all of them unusable. A part has two names, and every taken name blocks at most one number.
// So one of the numbers up to their count is free, unless the names are too long or not URLs, and
// then higher numbers do not help.
QString PartNames::takeFirstFree(const QString &prefix, const QString &ext)
{
    int &next = m_nextNumber[{prefix, ext}];
    const std::size_t taken = m_locations.size() + m_contentIds.size() + m_exact.size();
    const int unindexed = m_unindexed ? 2 * m_unindexed->getPartCount() : 0;
    const qsizetype last = next + qsizetype(taken) + unindexed;
    while (next <= last) {
        const QString name = numbered(prefix, next, ext);
        if (!isUsable(name))
            break;
        ++next;
        if (take(name))
            return name;
    }
    return QString();
}

QString PartNames::uniqueAttachmentLocation(const QString &ext)
{
    const QString prefix = u"file"_s;
    QString name = takeFirstFree(prefix, ext);
    return name.isNull() ? takeFirstFree(prefix, QString()) : name;
}

QString PartNames::takeItselfOrNumbered(const QString &candidate, const QString &base,
                                        const QString &ext)
{
    if (isUsable(candidate) && take(candidate))
        return candidate;
    QString name = takeFirstFree(base + u'_', ext);
    return name.isNull() ? uniqueAttachmentLocation(QString()) : name;
}

// Checks the name without its "&" for being a URL, but if there is an extension the "&" stays in
// the result. Kept: presentations of stored messages refer to such names.
QString PartNames::uniqueLocation(const QString &name)
{
    NameParts parts(name);
    QString candidate = withoutAmpersand(parts.fileName);
    parts.cutBase();
    if (!isUrl(candidate))
        parts.base = Renamed;
    if (!parts.ext.isEmpty())
        candidate = withExtension(parts.base, parts.ext);
    return takeItselfOrNumbered(candidate, parts.base, parts.ext);
}

// Removes "&" from the first candidate only. Kept for the same reason.
QString PartNames::uniqueSource(const QString &name)
{
    NameParts parts(name);
    QString candidate = withoutAmpersand(parts.fileName);
    if (!isUrl(candidate)) {
        parts.base = Renamed;
        candidate = withExtension(parts.base, parts.ext);
    }
    if (parts.cutBase())
        candidate = withExtension(parts.base, parts.ext);
    return takeItselfOrNumbered(candidate, parts.base, parts.ext);
}
