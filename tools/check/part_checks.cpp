#include "check/check.h"
#include "check/part_keys.h"
#include "check/sent_body.h"
#include "input/message.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace Check {

namespace {

constexpr qsizetype LongestName = 100; // octets
constexpr QStringView UnsafeCharacters = u"/\\:*?\"<>|";

// Why file systems or programs refuse the name; empty if they do not.
QString whyUnsafe(const QString &name)
{
    if (name.startsWith(u'.') || name.startsWith(u'-'))
        return u"begins with %1"_s.arg(name.front());
    for (QChar character : name) {
        if (character.unicode() < u' ' || character.unicode() == 0x7F)
            return u"has a control character"_s;
        if (UnsafeCharacters.contains(character))
            return u"has the character %1"_s.arg(character);
    }
    return QString();
}

void checkLetters(const QString &what, const QString &name, const Place &place, Findings *findings)
{
    const qsizetype octets = name.toUtf8().size();
    if (octets > LongestName)
        findings->add(Rule::LongName, place, u"the %1 has %2 octets"_s.arg(what).arg(octets));
    if (octets > name.size()) // only ASCII characters take one octet each
        findings->add(Rule::ForeignName, place, u"the %1 is not ASCII"_s.arg(what));
}

void checkSafety(const QString &what, const QString &name, const Place &place, Findings *findings)
{
    if (const QString why = whyUnsafe(name); !why.isEmpty())
        findings->add(Rule::UnsafeName, place, u"the %1 %2"_s.arg(what, why));
}

void checkName(const QString &what, const QString &name, const Place &place, Findings *findings)
{
    checkLetters(what, name, place, findings);
    checkSafety(what, name, place, findings);
}

bool isBare(const QString &id)
{
    return !id.isEmpty() && !(id.startsWith(u'<') && id.endsWith(u'>'));
}

// A part without another name is saved by its Content-ID.
void checkId(const QString &id, bool isOnlyName, const Place &place, Findings *findings)
{
    const QString name = bareName(id);
    checkLetters(u"Content-ID"_s, name, place, findings);
    if (isOnlyName)
        checkSafety(u"Content-ID"_s, name, place, findings);
    if (isBare(id))
        findings->add(Rule::BareContentId, place,
                      u"the Content-ID \"%1\" has no angle brackets"_s.arg(id));
}

/// Finds names of one kind that two parts share.
class Names
{
public:
    explicit Names(Findings *findings) : m_findings(findings) { }

    void add(const QString &name, int part, const Place &place)
    {
        const QString key = partKey(name);
        if (key.isEmpty())
            return;
        const auto known = m_first.constFind(key);
        if (known == m_first.constEnd())
            m_first.insert(key, {part, name});
        else
            m_findings->add(Rule::SameName, place,
                            u"\"%1\" is also the name of part %2, \"%3\""_s.arg(name)
                                .arg(known->first)
                                .arg(known->second));
    }

private:
    QHash<QString, std::pair<int, QString>> m_first; // part and name by key
    Findings *m_findings;
};

void checkNames(Message &message, const SentBody &body, Findings *findings)
{
    Names locations(findings);
    Names ids(findings);
    const auto *smil = message.parts().getSmilPart();
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        const QvlScannedPart *sent = body.part(i);
        if (!sent)
            continue;
        const Place place = body.placeOf(i);
        const QString location = sent->location();
        const QString id = sent->id();
        const QString fileName = sent->fileName();
        locations.add(location, i, place);
        ids.add(id, i, place);
        checkName(u"Content-Location"_s, location, place, findings);
        checkId(id, location.isEmpty() && fileName.isEmpty(), place, findings);
        if (fileName != location)
            checkName(u"file name"_s, fileName, place, findings);
        if (message.smilResult && location.isEmpty() && id.isEmpty() && fileName.isEmpty()
            && message.parts().getBodypartByIndex(i) != smil)
            findings->add(Rule::NoName, place, u"the part has no name"_s);
    }
}

// The header and the number of parts have rules of their own.
bool isForm(QvlChange::Place place)
{
    constexpr std::array others{QvlChange::HeaderField, QvlChange::HeaderEnd, QvlChange::PartCount,
                                QvlChange::Parts};
    return std::ranges::find(others, place) == others.end();
}

void checkForms(const Message &message, const SentBody &body, Findings *findings)
{
    for (const QvlChange &change : message.changes()) {
        if (!isForm(change.place))
            continue;
        Place place{.octet = change.offset, .part = change.part};
        if (change.part >= 0 && change.part < message.parts().getPartCount())
            place.name = body.placeOf(change.part).name;
        findings->add(Rule::PartForm, place, QString::fromLatin1(change.reason));
    }
}

// The relay answers so when it cannot hand over the message.
bool isFailedRetrieval(const Message &message)
{
    QvlHeaderScanner scanner(message.octets);
    QvlScannedField field;
    while (scanner.next(&field)) {
        if (field.code == QvlLaterFieldCode::RetrieveStatus)
            return field.decoded().token != QvlResponseStatus::Ok;
    }
    return false;
}

void checkCount(int count, const Place &place, Findings *findings)
{
    if (count > QvlMessage::MostParts)
        findings->add(Rule::TooManyParts, place, u"the message has %1 parts"_s.arg(count));
}

// The body as it was sent.
void checkDivision(const Message &message, Findings *findings)
{
    const bool hasBody =
        message.header().fieldsPresent(headerFieldMask(HeaderFieldCode::ContentType));
    if (hasBody && !message.bodyResult.value_or(MultipartResult::Ok)
        && message.parts().getPartCount() == 0 && !isFailedRetrieval(message))
        findings->add(Rule::NoParts, {.octet = message.sentBodyOffset()},
                      u"the body has no part"_s);
    if (!message.isMultipart())
        return;
    const qsizetype start = message.sentBodyOffset();
    const QByteArrayView octets = QByteArrayView(message.octets).sliced(start);
    QvlPartScanner scanner(octets);
    checkCount(scanner.count(), {.octet = start}, findings);
    QvlScannedPart part;
    while (scanner.next(&part)) { }
    const qsizetype more = octets.size() - scanner.position();
    if (scanner.result() == QvlPartScanner::PartsRead && more > 0)
        findings->add(Rule::ExtraOctets, {.octet = start + scanner.position()},
                      u"%1 %2 the last part"_s.arg(more).arg(more == 1 ? u"octet follows"_s
                                                                       : u"octets follow"_s));
}

int largestPart(const Message &message)
{
    int largest = -1;
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        if (largest < 0
            || message.parts().getBodypartByIndex(i)->getBodyDataLen()
                > message.parts().getBodypartByIndex(largest)->getBodyDataLen())
            largest = i;
    }
    return largest;
}

void checkSize(const Message &message, qint64 limit, const SentBody &body, Findings *findings)
{
    const qint64 octets = message.octets.size();
    if (octets <= limit)
        return;
    const QString problem =
        u"%1 octets, %2 above the limit of %3"_s.arg(octets).arg(octets - limit).arg(limit);
    const int largest = largestPart(message);
    if (largest < 0 || message.parts().getBodypartByIndex(largest)->getBodyDataLen() == 0)
        return findings->add(Rule::TooLarge, {}, problem);
    findings->add(Rule::TooLarge, body.placeOf(largest),
                  problem
                      + u"; this part is the largest, with %1"_s.arg(
                          message.parts().getBodypartByIndex(largest)->getBodyDataLen()));
}

void checkEmptyParts(const Message &message, const SentBody &body, Findings *findings)
{
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        if (message.parts().getBodypartByIndex(i)->getBodyDataLen() == 0)
            findings->add(Rule::EmptyPart, body.placeOf(i), u"the part has no content"_s);
    }
}

} // namespace

void checkParts(Message &message, const Limits &limits, Findings *findings)
{
    const SentBody body(message);
    if (const int code = message.bodyResult.value_or(MultipartResult::Ok))
        findings->add(Rule::BodyRefused, {.octet = message.sentBodyOffset()},
                      QString::fromLatin1(MultipartResult::meaning(code))
                          + whyBodyRefused(message));
    checkForms(message, body, findings);
    checkDivision(message, findings);
    checkSize(message, limits.octets, body, findings);
    checkEmptyParts(message, body, findings);
    checkNames(message, body, findings);
}

} // namespace Check
