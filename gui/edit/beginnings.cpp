#include "edit/beginnings.h"

#include "compose/new_message.h"
#include "compose/values.h"
#include "edit/content_copy.h"
#include "edit/header_fields.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace {

using Addresses = std::vector<MMS_UTIL_Entry>;

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

bool isSame(const QString &address, const QString &other)
{
    return address.compare(other, Qt::CaseInsensitive) == 0;
}

// Adds @p entry unless it is there, or is nobody.
void add(const MMS_UTIL_Entry &entry, Addresses *addresses)
{
    const bool isThere = std::ranges::any_of(*addresses, [&](const MMS_UTIL_Entry &other) {
        return isSame(other.getAddress(), entry.getAddress());
    });
    if (isKnown(entry) && !isThere)
        addresses->push_back(entry);
}

void add(const QPtrList<MMS_UTIL_Entry> &entries, Addresses *addresses)
{
    for (const MMS_UTIL_Entry *entry : entries) {
        if (entry)
            add(*entry, addresses);
    }
}

Addresses addressesOf(const QPtrList<MMS_UTIL_Entry> &entries)
{
    Addresses addresses;
    add(entries, &addresses);
    return addresses;
}

void remove(const QString &address, Addresses *addresses)
{
    std::erase_if(*addresses,
                  [&](const MMS_UTIL_Entry &entry) { return isSame(entry.getAddress(), address); });
}

// "Re: Lunch" stays.
QString prefixed(const QString &subject, const QString &prefix)
{
    return subject.startsWith(prefix, Qt::CaseInsensitive)
        ? subject
        : (prefix + QLatin1Char(' ') + subject).trimmed();
}

// The sender; of a message to send, its recipients.
Addresses answered(const Message &message)
{
    Addresses addresses;
    add(message.header().getFrom(), &addresses);
    if (message.header().getMessageType() == QvlMessageType::SendReq)
        return addressesOf(message.header().getToRecipients());
    return addresses;
}

std::unique_ptr<Message> answerTo(const Message &message)
{
    auto answer = emptyMessage();
    HeaderFields::setRecipients(Recipients::To, answered(message), &answer->header());
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
    return !answered(message).empty();
}

std::unique_ptr<Editor> Beginnings::replyTo(const Message &message)
{
    return editorOf(answerTo(message));
}

std::unique_ptr<Editor> Beginnings::replyToAll(const Message &message, const QString &ownAddress)
{
    auto answer = answerTo(message);
    Addresses to = answered(message);
    add(message.header().getToRecipients(), &to);
    remove(ownAddress, &to);
    Addresses cc = addressesOf(message.header().getCcRecipients());
    remove(ownAddress, &cc);
    for (const MMS_UTIL_Entry &entry : to)
        remove(entry.getAddress(), &cc);
    HeaderFields::setRecipients(Recipients::To, to, &answer->header());
    HeaderFields::setRecipients(Recipients::Cc, cc, &answer->header());
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
