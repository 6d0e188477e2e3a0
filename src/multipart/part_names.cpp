#include "multipart/part_names.h"

#include "multipart/multipart.h"
#include "multipart/reference.h"
#include "platform/comp_util.h"

#include <QUrl>

#include <algorithm>

namespace {

constexpr int LocationLimit = 100; // a location is shorter than this
constexpr int LongestBaseAndExtension = 88; // leaves room for a number and two dots

constexpr QLatin1String renamed("renamed");

QString withDot(const QString &ext)
{
    return ext.isEmpty() ? ext : QLatin1Char('.') + ext;
}

QString withoutAmpersand(QString name)
{
    return name.remove(QLatin1Char('&'));
}

// Most names are so plain that no parser is needed to tell.
bool isUrl(const QString &name)
{
    const auto isPlain = [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9')
            || c == u'.' || c == u'_' || c == u'-';
    };
    return (!name.isEmpty() && std::all_of(name.begin(), name.end(), isPlain))
        || QUrl(name).isValid();
}

QString contentIdKey(const QString &text)
{
    return Reference::contentIdKey(text).toString().toLower();
}

// A file name in pieces.
struct NameParts
{
    explicit NameParts(const QString &name)
        : fileName(MMS_COMP_Util::stripePath(name)), base(MMS_COMP_Util::getNoExtName(fileName)),
          ext(MMS_COMP_Util::getExtName(fileName)), suffix(withDot(ext))
    {
    }

    // Cuts the base so that it and the extension are not too long; false when they were not.
    bool cutBase()
    {
        if (base.size() + ext.size() <= LongestBaseAndExtension)
            return false;
        base.truncate(qMax<qsizetype>(LongestBaseAndExtension - ext.size(), 0));
        return true;
    }

    QString fileName;
    QString base;
    QString ext;
    QString suffix;
};

} // namespace

bool PartNames::isUsable(const QString &name)
{
    return name.size() < LocationLimit && isUrl(name);
}

void PartNames::add(const MMS_COMP_SMILMultipartBodypart &part)
{
    m_locations.insert(part.getContentLocation().toLower());
    if (const QString key = contentIdKey(part.getContentID()); !key.isEmpty())
        m_contentIds.insert(key);
}

void PartNames::add(const MMS_COMP_SMILMultipart &multipart)
{
    for (int i = 0; i < multipart.getPartCount(); ++i)
        add(*multipart.getBodypartByIndex(i));
}

bool PartNames::isTaken(const QString &name) const
{
    return m_exact.contains(name) || m_locations.contains(name.toLower())
        || (!m_contentIds.empty() && m_contentIds.contains(contentIdKey(name)));
}

// The first of prefix 0 suffix, prefix 1 suffix, ... that is free, or a null text when the pattern
// itself makes all of them unusable. Every taken name blocks one number at most, so one of the
// numbers up to their count is free unless the names get too long or are no URLs, which no higher
// number mends.
QString PartNames::firstFree(const QString &prefix, const QString &suffix)
{
    int &next = m_nextNumber[prefix + QChar::Null + suffix];
    const std::size_t taken = m_locations.size() + m_contentIds.size() + m_exact.size();
    const qsizetype last = next + qsizetype(taken);
    for (; next <= last; ++next) {
        const QString name = prefix + QString::number(next) + suffix;
        if (isTaken(name))
            continue;
        if (!isUsable(name))
            break;
        ++next; // whoever asked uses the name
        return name;
    }
    return QString();
}

QString PartNames::uniqueAttachmentLocation(const QString &ext)
{
    const QString prefix = QStringLiteral("file");
    QString name = firstFree(prefix, withDot(ext));
    return name.isNull() ? firstFree(prefix, QString()) : name;
}

QString PartNames::itselfOrNumbered(const QString &candidate, const QString &base,
                                    const QString &suffix)
{
    if (isFree(candidate))
        return candidate;
    QString numbered = firstFree(base + QLatin1Char('_'), suffix);
    return numbered.isNull() ? uniqueAttachmentLocation(QString()) : numbered;
}

// The name is tested for being a URL without its "&", but with an extension the "&" stays in the
// result. Kept: presentations of stored messages refer to such names.
QString PartNames::uniqueLocation(const QString &name)
{
    NameParts parts(name);
    QString candidate = withoutAmpersand(parts.fileName);
    parts.cutBase();
    if (!isUrl(candidate))
        parts.base = renamed;
    if (!parts.suffix.isEmpty())
        candidate = parts.base + parts.suffix;
    return itselfOrNumbered(candidate, parts.base, parts.suffix);
}

// Only the first candidate is without "&". Kept for the same reason.
QString PartNames::uniqueSource(const QString &name)
{
    NameParts parts(name);
    QString candidate = withoutAmpersand(parts.fileName);
    if (!isUrl(candidate)) {
        parts.base = renamed;
        candidate = parts.base + parts.suffix;
    }
    if (parts.cutBase())
        candidate = parts.base + parts.suffix;
    return itselfOrNumbered(candidate, parts.base, parts.suffix);
}
