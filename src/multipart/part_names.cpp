#include "multipart/part_names.h"

#include "multipart/multipart.h"
#include "multipart/reference.h"
#include "platform/comp_util.h"

#include <QUrl>

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
    return name.size() < LocationLimit && QUrl(name).isValid();
}

void PartNames::add(const MMS_COMP_SMILMultipartBodypart &part)
{
    m_locations.insert(part.getContentLocation().toLower());
    m_contentIds.insert(contentIdKey(part.getContentID()));
}

void PartNames::add(const MMS_COMP_SMILMultipart &multipart)
{
    for (int i = 0; i < multipart.getPartCount(); ++i)
        add(*multipart.getBodypartByIndex(i));
}

bool PartNames::isFree(const QString &name) const
{
    if (!isUsable(name) || m_exact.contains(name) || m_locations.contains(name.toLower()))
        return false;
    const QString key = contentIdKey(name);
    return key.isEmpty() || !m_contentIds.contains(key);
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
        if (isFree(name))
            return name;
        if (!isUsable(name))
            break;
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
    if (!QUrl(candidate).isValid())
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
    if (!QUrl(candidate).isValid()) {
        parts.base = renamed;
        candidate = parts.base + parts.suffix;
    }
    if (parts.cutBase())
        candidate = parts.base + parts.suffix;
    return itselfOrNumbered(candidate, parts.base, parts.suffix);
}
