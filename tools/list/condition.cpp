#include "list/condition.h"

#include "input/sizes.h"

#include <QDateTime>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace MessageList {

namespace {

/// A condition after its name and its operator.
struct Kind
{
    const char *start;
    const char *value; ///< what is expected
    Condition (*read)(const QString &value); ///< null for another value
};

// A phone number without spaces and punctuation; every other address in lower case.
QString comparableAddress(const QString &address)
{
    QString digits;
    for (QChar character : address) {
        if (character.isDigit() || (character == u'+' && digits.isEmpty()))
            digits += character;
        else if (!character.isSpace() && !QStringView(u"()-./").contains(character))
            return address.toCaseFolded();
    }
    return digits.isEmpty() ? address.toCaseFolded() : digits;
}

Condition readFrom(const QString &value)
{
    if (value.isEmpty())
        return nullptr;
    return [wanted = comparableAddress(value)](const Entry &entry) {
        return comparableAddress(entry.from) == wanted;
    };
}

Condition readTo(const QString &value)
{
    if (value.isEmpty())
        return nullptr;
    return [wanted = comparableAddress(value)](const Entry &entry) {
        return std::ranges::any_of(
            entry.to, [&](const QString &address) { return comparableAddress(address) == wanted; });
    };
}

Condition readSubject(const QString &value)
{
    if (value.isEmpty())
        return nullptr;
    return
        [value](const Entry &entry) { return entry.subject.contains(value, Qt::CaseInsensitive); };
}

// "m-send-req", "send-req" or "128".
Condition readType(const QString &value)
{
    for (int type = 128; type <= 255; ++type) {
        const QString name = typeText(type);
        if (value == QString::number(type) || value.compare(name, Qt::CaseInsensitive) == 0
            || (name.startsWith("m-"_L1)
                && value.compare(name.sliced(2), Qt::CaseInsensitive) == 0))
            return [type](const Entry &entry) { return entry.type == type; };
    }
    return nullptr;
}

std::optional<qint64> readDate(const QString &value)
{
    const QDateTime date = QDateTime::fromString(value, Qt::ISODate); // a date alone is midnight
    return date.isValid() ? std::optional(date.toSecsSinceEpoch()) : std::nullopt;
}

Condition readSince(const QString &value)
{
    const auto date = readDate(value);
    if (!date)
        return nullptr;
    return [date](const Entry &entry) { return entry.date && *entry.date >= *date; };
}

Condition readUntil(const QString &value)
{
    const auto date = readDate(value);
    if (!date)
        return nullptr;
    return [date](const Entry &entry) { return entry.date && *entry.date <= *date; };
}

Condition readHas(const QString &value)
{
    for (std::size_t kind = 0; kind < std::size_t(PartKind::Other); ++kind) {
        if (value == QLatin1StringView(kindNames[kind]))
            return [kind](const Entry &entry) { return entry.parts[kind] > 0; };
    }
    return nullptr;
}

Condition readLarger(const QString &value)
{
    const auto octets = sizeFrom(value);
    if (!octets)
        return nullptr;
    return [octets](const Entry &entry) { return entry.octets > *octets; };
}

Condition readState(const QString &value)
{
    for (MessageState state : {MessageState::Ok, MessageState::Changed, MessageState::Refused}) {
        if (value == QLatin1StringView(stateName(state)))
            return [state](const Entry &entry) { return entry.state == state; };
    }
    return nullptr;
}

constexpr std::array kinds{
    Kind{"from=", "an address", readFrom},
    Kind{"to=", "an address", readTo},
    Kind{"subject~", "a text", readSubject},
    Kind{"type=", "the name or number of a message type", readType},
    Kind{"since=", "a date such as 2026-05-01 or 2026-05-01T12:00", readSince},
    Kind{"until=", "a date such as 2026-05-01 or 2026-05-01T12:00", readUntil},
    Kind{"has=", "image, audio, video, text or smil", readHas},
    Kind{"larger=", "a size from 1 to 1G such as 100k", readLarger},
    Kind{"state=", "ok, changed or refused", readState},
};

QString starts()
{
    QStringList all;
    for (const Kind &kind : kinds)
        all += QString::fromLatin1(kind.start);
    return all.join(", "_L1);
}

} // namespace

Condition readCondition(const QString &text, QString *error)
{
    const auto kind = std::ranges::find_if(
        kinds, [&text](const Kind &one) { return text.startsWith(QLatin1StringView(one.start)); });
    if (kind == kinds.end()) {
        *error = u"no condition begins like \"%1\"; the conditions are %2"_s.arg(text, starts());
        return nullptr;
    }
    Condition condition = kind->read(text.sliced(QLatin1StringView(kind->start).size()));
    if (!condition)
        *error = text + u": %1 is expected"_s.arg(QLatin1StringView(kind->value));
    return condition;
}

} // namespace MessageList
