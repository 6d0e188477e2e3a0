#include "rewrite/dropped.h"

#include "input/message.h"

#include <algorithm>
#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace {

class Items
{
public:
    void add(const QString &item)
    {
        if (!m_items.contains(item))
            m_items += item;
    }
    QStringList take() { return std::move(m_items); }

private:
    QStringList m_items;
};

bool isWritten(int code, const MMS_UA_UAMsg &header)
{
    const MessageTypeInfo *type = messageTypeInfo(header.getMessageType());
    return type && std::ranges::find(type->writeOrder, code) != type->writeOrder.end();
}

bool isLeftOut(const Message &message, const QvlScannedField &field)
{
    return std::ranges::any_of(message.changes(), [&](const QvlChange &change) {
        return change.kind == QvlChange::LeftOut && change.offset == field.offset;
    });
}

QString wireCode(int code)
{
    return QString::number(code | 0x80, 16).toUpper();
}

QString fieldName(const QvlScannedField &field)
{
    if (field.known)
        return QString::fromLatin1(field.known->name);
    return field.code == QvlScannedField::NoCode ? QString::fromUtf8(field.letters)
                                                 : "field "_L1 + wireCode(field.code);
}

void addFields(const Message &message, Items *items)
{
    QvlHeaderScanner scanner(message.pdu());
    QvlScannedField field;
    while (scanner.next(&field)) {
        if (!isWritten(field.code, message.header()) || isLeftOut(message, field))
            items->add(fieldName(field));
    }
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
        : item.code == QvlScannedField::NoCode ? QString::fromUtf8(item.letters)
                                               : wireCode(item.code);
}

bool isOneOf(std::span<const QLatin1StringView> names, const QString &name)
{
    return std::ranges::any_of(
        names, [&](QLatin1StringView one) { return name.compare(one, Qt::CaseInsensitive) == 0; });
}

// A transfer encoding is decoded before, and a text is declared in UTF-8.
constexpr std::array writtenHeaders{"content-location"_L1, "content-id"_L1,
                                    "content-transfer-encoding"_L1};
constexpr std::array writtenParameters{"charset"_L1, "name"_L1, "type"_L1, "start"_L1};

void addPartItems(const QvlScannedPart &part, Items *items)
{
    const auto contentType = part.contentType();
    for (const QvlScannedParameter &parameter :
         contentType ? contentType->parameters : std::vector<QvlScannedParameter>()) {
        if (!isOneOf(writtenParameters, nameOf(parameter)))
            items->add(u"the parameter %1 of parts"_s.arg(nameOf(parameter)));
    }
    QvlPartHeaderScanner scanner(part.headers);
    QvlScannedHeader header;
    while (scanner.next(&header)) {
        if (!isOneOf(writtenHeaders, nameOf(header)))
            items->add(u"the header %1 of parts"_s.arg(nameOf(header)));
    }
}

void addParts(const Message &message, Items *items)
{
    if (!message.isMultipart())
        return;
    QvlPartScanner scanner(QByteArrayView(message.pdu()).sliced(message.sentBodyOffset()));
    QvlScannedPart part;
    while (scanner.next(&part))
        addPartItems(part, items);
    if (scanner.count() > message.parts().getPartCount())
        items->add(u"parts after part %1"_s.arg(message.parts().getPartCount()));
}

} // namespace

QStringList droppedItems(const Message &message)
{
    Items items;
    addFields(message, &items);
    addNames(message.header(), &items);
    addParts(message, &items);
    return items.take();
}
