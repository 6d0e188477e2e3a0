#include "rewrite/dropped.h"

#include "input/message.h"

#include <QSet>

#include <algorithm>
#include <array>
#include <limits>
#include <span>

using namespace Qt::StringLiterals;

namespace {

// Each item once, in the order of their first addition.
class Items
{
public:
    void add(const QString &item)
    {
        if (!m_known.contains(item)) {
            m_known.insert(item);
            m_items += item;
        }
    }
    QStringList take() { return std::move(m_items); }

private:
    QStringList m_items;
    QSet<QString> m_known;
};

bool isWritten(int code, const MMS_UA_UAMsg &header)
{
    const MessageTypeInfo *type = messageTypeInfo(header.getMessageType());
    return type && std::ranges::find(type->writeOrder, code) != type->writeOrder.end();
}

QSet<qsizetype> offsetsLeftOut(const Message &message)
{
    QSet<qsizetype> offsets;
    for (const QvlChange &change : message.changes()) {
        if (change.kind == QvlChange::LeftOut)
            offsets.insert(change.offset);
    }
    return offsets;
}

bool mayRepeat(int code)
{
    return code == HeaderFieldCode::To || code == HeaderFieldCode::Cc
        || code == HeaderFieldCode::Bcc;
}

QString wireCode(int code)
{
    return QString::number(code | 0x80, 16).toUpper();
}

QString fieldName(const QvlScannedField &field)
{
    if (field.known)
        return QString::fromLatin1(field.known->name);
    return field.code == QvlScannedField::NoCode ? qvlDecodeText(field.letters, 0)
                                                 : "field "_L1 + wireCode(field.code);
}

void addFields(const Message &message, Items *items)
{
    const QSet<qsizetype> leftOut = offsetsLeftOut(message);
    QSet<int> written;
    QvlHeaderScanner scanner(message.pdu());
    QvlScannedField field;
    while (scanner.next(&field)) {
        if (!isWritten(field.code, message.header()) || leftOut.contains(field.offset))
            items->add(fieldName(field));
        else if (written.contains(field.code) && !mayRepeat(field.code))
            items->add(fieldName(field) + " except the last"_L1);
        else
            written.insert(field.code);
    }
}

// The writer writes other dates for those that do not fit its numbers.
void addDate(const Message &message, Items *items)
{
    const auto date = message.sentTimes().date;
    if (date && date->seconds > std::numeric_limits<int>::max())
        items->add(u"the date, which is after 2038-01-19"_s);
}

// The writer writes addresses alone.
void addNames(const MMS_UA_UAMsg &header, Items *items)
{
    const auto hasName = [](const MMS_UTIL_Entry *entry) {
        return entry->getType() != MMS_UTIL_Entry::Absent && !entry->getName().isEmpty();
    };
    const MMS_UTIL_Entry from = header.getFrom();
    if (hasName(&from))
        items->add(u"the sender's name"_s);
    for (const auto *list :
         {&header.getToRecipients(), &header.getCcRecipients(), &header.getBccRecipients()}) {
        if (std::any_of(list->begin(), list->end(), hasName))
            items->add(u"names of recipients"_s);
    }
}

template <typename Item>
QString nameOf(const Item &item)
{
    return item.name                           ? QString::fromLatin1(item.name)
        : item.code == QvlScannedField::NoCode ? qvlDecodeText(item.letters, 0)
                                               : wireCode(item.code);
}

bool isOneOf(std::span<const QLatin1StringView> names, const QString &name)
{
    return std::ranges::any_of(
        names, [&](QLatin1StringView one) { return name.compare(one, Qt::CaseInsensitive) == 0; });
}

constexpr std::array writtenHeaders{"content-location"_L1, "content-id"_L1};
constexpr std::array writtenParameters{"name"_L1, "type"_L1, "start"_L1};

bool isWritten(const QvlScannedParameter &parameter, const QvlContentType &contentType)
{
    const QString name = nameOf(parameter);
    return isOneOf(writtenParameters, name)
        || (contentType.mediaType == "text/plain"_L1
            && name.compare("charset"_L1, Qt::CaseInsensitive) == 0);
}

void addPartItems(const QvlScannedPart &part, bool isDecoded, Items *items)
{
    const auto contentType = part.contentType();
    for (const QvlScannedParameter &parameter :
         contentType ? contentType->parameters : std::vector<QvlScannedParameter>()) {
        if (!isWritten(parameter, *contentType))
            items->add(u"the parameter %1 of parts"_s.arg(nameOf(parameter)));
    }
    QvlPartHeaderScanner scanner(part.headers);
    QvlScannedHeader header;
    while (scanner.next(&header)) {
        const QString name = nameOf(header);
        const bool isEncoding =
            name.compare("content-transfer-encoding"_L1, Qt::CaseInsensitive) == 0;
        if (!isOneOf(writtenHeaders, name) && !(isEncoding && isDecoded))
            items->add(u"the header %1 of parts"_s.arg(name));
    }
}

void addParts(const Message &message, Items *items)
{
    if (!message.isMultipart())
        return;
    QvlPartScanner scanner(QByteArrayView(message.pdu()).sliced(message.sentBodyOffset()));
    QSet<int> decoded;
    for (const QvlChange &change : message.changes()) {
        if (change.place == QvlChange::PartBody)
            decoded.insert(change.part);
    }
    QvlScannedPart part;
    while (scanner.next(&part))
        addPartItems(part, decoded.contains(part.index), items);
    if (scanner.count() > message.parts().getPartCount())
        items->add(u"parts after part %1"_s.arg(message.parts().getPartCount()));
}

} // namespace

QStringList droppedItems(const Message &message)
{
    Items items;
    addFields(message, &items);
    addDate(message, &items);
    addNames(message.header(), &items);
    addParts(message, &items);
    return items.take();
}
