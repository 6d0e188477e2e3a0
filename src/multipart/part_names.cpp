#include "multipart/part_names.h"

#include "multipart/multipart.h"
#include "multipart/reference.h"
#include "platform/comp_util.h"

#include <QUrl>

namespace {

constexpr int LocationLimit = 100; // a location is shorter than this
constexpr int LongestBaseAndExtension = 88; // leaves room for a number and two dots

QString withExtension(const QString &ext)
{
    return ext.isEmpty() ? ext : QLatin1Char('.') + ext;
}

} // namespace

PartNames::PartNames(const MMS_COMP_SMILMultipart &multipart)
{
    for (int i = 0; i < multipart.getPartCount(); ++i) {
        if (const auto *part = multipart.getBodypartByIndex(i))
            add(*part);
    }
}

bool PartNames::isUsable(const QString &name)
{
    return name.size() < LocationLimit && QUrl(name).isValid();
}

void PartNames::add(const MMS_COMP_SMILMultipartBodypart &part)
{
    m_locations.insert(part.getContentLocation().toLower());
    m_contentIds.insert(Reference::contentIdKey(part.getContentID()));
}

bool PartNames::isFree(const QString &name) const
{
    if (!isUsable(name) || m_locations.contains(name.toLower()))
        return false;
    const QString key = Reference::contentIdKey(name);
    return key.isEmpty() || !m_contentIds.contains(key);
}

// The first of prefix 0 suffix, prefix 1 suffix, ... that is free, or a null text when the pattern
// itself makes all of them unusable. Every taken name blocks one number at most, so one of the
// numbers up to their count is free unless the names get too long or are no URLs, which no higher
// number mends.
QString PartNames::firstFree(const QString &prefix, const QString &suffix)
{
    int &next = m_nextNumber[prefix + QChar::Null + suffix];
    const qsizetype last = next + m_locations.size() + m_contentIds.size();
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
    const QString name = firstFree(prefix, withExtension(ext));
    return name.isNull() ? firstFree(prefix, QString()) : name;
}

// The name is tested for being a URL without its "&", but with an extension the "&" stays in the
// result. Kept: presentations of stored messages refer to such names.
QString PartNames::uniqueLocation(const QString &name)
{
    const QString fileName = MMS_COMP_Util::stripePath(name);
    const QString ext = MMS_COMP_Util::getExtName(fileName);
    QString base = MMS_COMP_Util::getNoExtName(fileName);
    QString result = fileName;
    result.remove(QLatin1Char('&'));
    if (base.size() + ext.size() > LongestBaseAndExtension)
        base.truncate(qMax<qsizetype>(LongestBaseAndExtension - ext.size(), 0));
    if (!QUrl(result).isValid())
        base = QStringLiteral("renamed");
    if (!ext.isEmpty())
        result = base + withExtension(ext);
    if (isFree(result))
        return result;
    result = firstFree(base + QLatin1Char('_'), withExtension(ext));
    return result.isNull() ? uniqueAttachmentLocation(QString()) : result;
}
