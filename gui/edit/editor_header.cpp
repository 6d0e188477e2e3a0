/*
 * Actions of Editor on the header.
 */
#include "compose/values.h"
#include "edit/editor.h"

#include <algorithm>
#include <limits>

namespace {

// Fields in which people type; a slide's text has a number from Text on, see editor_media.cpp.
enum Field { Subject, To, Cc, Bcc };

Field fieldOf(Recipients kind)
{
    return Field(To + int(kind));
}

// An address that the header has keeps its name and kind.
std::optional<MMS_UTIL_Entry> entryOf(const QString &address,
                                      const QPtrList<MMS_UTIL_Entry> &entries)
{
    const auto known = std::ranges::find_if(entries, [&](const MMS_UTIL_Entry *entry) {
        return entry && entry->getAddress() == address;
    });
    return known != entries.end() ? **known : ComposeValues::address(address);
}

} // namespace

QString Editor::setRecipients(Recipients kind, const QStringList &addresses)
{
    MMS_UA_UAMsg *header = &m_message->header();
    std::vector<MMS_UTIL_Entry> entries;
    for (const QString &text : addresses) {
        const QString address = text.trimmed();
        if (address.isEmpty())
            continue;
        const auto entry = entryOf(address, HeaderFields::recipients(kind, header));
        if (!entry)
            return tr("%1 is neither a phone number nor an e-mail address.").arg(address);
        entries.push_back(*entry);
    }
    return perform(
        tr("Change Recipients"),
        [&] {
            HeaderFields::setRecipients(kind, entries, header);
            return QString();
        },
        fieldOf(kind));
}

QString Editor::setSubject(const QString &subject)
{
    if (!ComposeValues::isLine(subject))
        return tr("A subject is one line.");
    return perform(
        tr("Change Subject"),
        [&] {
            HeaderFields::setSubject(subject, &m_message->header());
            return QString();
        },
        Subject);
}

QString Editor::setPriority(unsigned char priority)
{
    if (!QvlPriority::nameOf(priority))
        return tr("There is no such priority.");
    return perform(tr("Change Priority"), [&] {
        HeaderFields::setPriority(priority, &m_message->header());
        return QString();
    });
}

QString Editor::setDeliveryReport(bool isWanted)
{
    return perform(tr("Change Delivery Report"), [&] {
        HeaderFields::setDeliveryReport(isWanted, &m_message->header());
        return QString();
    });
}

QString Editor::setReadReport(bool isWanted)
{
    return perform(tr("Change Read Report"), [&] {
        HeaderFields::setReadReport(isWanted, &m_message->header());
        return QString();
    });
}

QString Editor::setExpiry(std::optional<int> seconds)
{
    if (seconds && *seconds < 1)
        return tr("A message expires after at least one second.");
    return perform(tr("Change Expiry"), [&] {
        HeaderFields::setExpiry(seconds, &m_message->header());
        return QString();
    });
}

QString Editor::setDeliveryTime(const std::optional<QDateTime> &time)
{
    // The wire format cannot represent later dates.
    if (time
        && (!time->isValid() || time->toSecsSinceEpoch() < 0
            || time->toSecsSinceEpoch() > std::numeric_limits<int>::max()))
        return tr("A message cannot have this delivery time.");
    return perform(tr("Change Delivery Time"), [&] {
        HeaderFields::setDeliveryTime(time ? std::optional(time->toLocalTime()) : std::nullopt,
                                      &m_message->header());
        return QString();
    });
}
