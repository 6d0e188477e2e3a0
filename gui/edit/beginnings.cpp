#include "edit/beginnings.h"

#include "compose/new_message.h"
#include "compose/values.h"
#include "edit/content_copy.h"
#include "edit/header_fields.h"

#include <QSet>

#include <algorithm>
#include <limits>
#include <vector>

namespace {

/// Addresses without repetitions, in their order.
class Addresses
{
public:
    /// Adds @p entry unless it is there, or is nobody.
    void add(const MMS_UTIL_Entry &entry);
    void add(const QPtrList<MMS_UTIL_Entry> &entries);
    /// From now on, leaves out @p address.
    void leaveOut(const QString &address) { m_known.insert(address.toCaseFolded()); }

    const std::vector<MMS_UTIL_Entry> &entries() const { return m_entries; }

private:
    std::vector<MMS_UTIL_Entry> m_entries;
    QSet<QString> m_known; ///< addresses that are not added any more
};

std::unique_ptr<Message> emptyMessage()
{
    auto message = std::make_unique<Message>();
    beginHeader(&message->header());
    MMS_COMP_SMILParser::updateToCorvaneRootLayout(&message->slides());
    MMS_COMP_SMILParser::updateToCorvaneRegion(&message->slides());
    message->slides().appendSlide(unsigned(QvlDuration::Default));
    return message;
}

std::unique_ptr<Editor> editorOf(std::unique_ptr<Message> message)
{
    return std::make_unique<Editor>(std::move(message));
}

// A line of what a sender wrote.
QString lineOf(QString text)
{
    for (QChar &character : text) {
        if (!ComposeValues::isLine(QString(character)) && !character.isSurrogate())
            character = u' ';
    }
    text = text.trimmed();
    return ComposeValues::isLine(text) ? text : QString();
}

bool isKnown(const MMS_UTIL_Entry &entry)
{
    return (entry.getType() == MMS_UTIL_Entry::Email || entry.getType() == MMS_UTIL_Entry::Plmn)
        && !entry.getAddress().isEmpty() && ComposeValues::isLine(entry.getAddress());
}

void Addresses::add(const MMS_UTIL_Entry &entry)
{
    const QString key = entry.getAddress().toCaseFolded();
    if (!isKnown(entry) || m_known.contains(key))
        return;
    m_known.insert(key);
    m_entries.push_back(entry);
}

void Addresses::add(const QPtrList<MMS_UTIL_Entry> &entries)
{
    for (const MMS_UTIL_Entry *entry : entries) {
        if (entry)
            add(*entry);
    }
}

std::vector<MMS_UTIL_Entry> addressesOf(const QPtrList<MMS_UTIL_Entry> &entries)
{
    Addresses addresses;
    addresses.add(entries);
    return addresses.entries();
}

// "Re: Lunch" stays.
QString prefixed(const QString &subject, const QString &prefix)
{
    return subject.startsWith(prefix, Qt::CaseInsensitive)
        ? subject
        : (prefix + QLatin1Char(' ') + subject).trimmed();
}

// The sender; of a message to send, its recipients.
void addAnswered(const Message &message, Addresses *addresses)
{
    if (message.header().getMessageType() == QvlMessageType::SendReq)
        addresses->add(message.header().getToRecipients());
    else
        addresses->add(message.header().getFrom());
}

std::unique_ptr<Message> answerTo(const Message &message)
{
    auto answer = emptyMessage();
    Addresses to;
    addAnswered(message, &to);
    HeaderFields::setRecipients(Recipients::To, to.entries(), &answer->header());
    HeaderFields::setSubject(prefixed(lineOf(message.subject()), QStringLiteral("Re:")),
                             &answer->header());
    return answer;
}

void copyWishes(const Message &message, MMS_UA_UAMsg *header)
{
    const MMS_UA_UAMsg &source = message.header();
    HeaderFields::setDeliveryReport(source.getDeliveryReport(), header);
    HeaderFields::setReadReport(source.getReadReply(), header);
    if (isKnown(source.getFrom())) {
        header->setFrom(source.getFrom());
        header->addFieldsPresent(headerFieldMask(HeaderFieldCode::From));
    }
    const QvlSentTimes times = message.sentTimes();
    if (times.expiry && times.expiry->isRelative && times.expiry->seconds > 0)
        HeaderFields::setExpiry(
            int(std::min<qint64>(times.expiry->seconds, std::numeric_limits<int>::max())), header);
    if (times.deliveryTime && !times.deliveryTime->isRelative)
        HeaderFields::setDeliveryTime(QDateTime::fromSecsSinceEpoch(times.deliveryTime->seconds),
                                      header);
}

} // namespace

std::unique_ptr<Editor> Beginnings::newMessage()
{
    return editorOf(emptyMessage());
}

bool Beginnings::canReplyTo(const Message &message)
{
    if (message.header().getMessageType() != QvlMessageType::SendReq)
        return isKnown(message.header().getFrom());
    const QPtrList<MMS_UTIL_Entry> &entries = message.header().getToRecipients();
    return std::ranges::any_of(
        entries, [](const MMS_UTIL_Entry *entry) { return entry && isKnown(*entry); });
}

std::unique_ptr<Editor> Beginnings::replyTo(const Message &message)
{
    return editorOf(answerTo(message));
}

std::unique_ptr<Editor> Beginnings::replyToAll(const Message &message, const QString &ownAddress)
{
    auto answer = answerTo(message);
    Addresses to;
    to.leaveOut(ownAddress);
    addAnswered(message, &to);
    to.add(message.header().getToRecipients());
    Addresses cc;
    cc.leaveOut(ownAddress);
    for (const MMS_UTIL_Entry &entry : to.entries())
        cc.leaveOut(entry.getAddress());
    cc.add(message.header().getCcRecipients());
    HeaderFields::setRecipients(Recipients::To, to.entries(), &answer->header());
    HeaderFields::setRecipients(Recipients::Cc, cc.entries(), &answer->header());
    return editorOf(std::move(answer));
}

bool Beginnings::canForward(const Message &message)
{
    return message.parts().getPartCount() > 0;
}

std::unique_ptr<Editor> Beginnings::forward(const Message &message)
{
    auto copy = copyContent(message);
    HeaderFields::setSubject(prefixed(lineOf(message.subject()), QStringLiteral("Fwd:")),
                             &copy->header());
    return editorOf(std::move(copy));
}

std::unique_ptr<Editor> Beginnings::editAsNew(const Message &message)
{
    auto copy = copyContent(message);
    const MMS_UA_UAMsg &source = message.header();
    MMS_UA_UAMsg *header = &copy->header();
    HeaderFields::setSubject(lineOf(message.subject()), header);
    HeaderFields::setRecipients(Recipients::To, addressesOf(source.getToRecipients()), header);
    HeaderFields::setRecipients(Recipients::Cc, addressesOf(source.getCcRecipients()), header);
    HeaderFields::setRecipients(Recipients::Bcc, addressesOf(source.getBccRecipients()), header);
    if (const unsigned char priority = source.getPriority();
        QvlPriority::nameOf(priority) && priority != QvlPriority::Normal)
        HeaderFields::setPriority(priority, header);
    if (source.getMessageType() == QvlMessageType::SendReq)
        copyWishes(message, header);
    return editorOf(std::move(copy));
}

std::unique_ptr<Editor> Beginnings::resume(const Message &draft)
{
    auto editor = editAsNew(draft);
    editor->setRecovered();
    return editor;
}
