#include "list/entry.h"

using namespace Qt::StringLiterals;

namespace MessageList {

namespace {

bool has(const MMS_UA_UAMsg &header, unsigned char code)
{
    return header.fieldsPresent(headerFieldMask(code));
}

PartKind kindOf(const MMS_COMP_SMILMultipartBodypart &part)
{
    const QString type = part.getMimeFormat().toLower();
    if (type == "application/smil"_L1)
        return PartKind::Smil;
    const QString mainType = type.section(u'/', 0, 0);
    for (PartKind kind : {PartKind::Image, PartKind::Audio, PartKind::Video, PartKind::Text}) {
        if (mainType == QLatin1StringView(kindNames[std::size_t(kind)]))
            return kind;
    }
    return PartKind::Other;
}

void addRecipients(const QPtrList<MMS_UTIL_Entry> &recipients, QStringList *to)
{
    for (const MMS_UTIL_Entry *recipient : recipients)
        *to += recipient->getAddress();
}

} // namespace

Entry entryOf(const Message &message)
{
    const MMS_UA_UAMsg &header = message.header();
    Entry entry;
    entry.file = message.fileName;
    if (const auto date = message.sentTimes().date)
        entry.date = date->seconds;
    if (has(header, HeaderFieldCode::MessageType))
        entry.type = header.getMessageType();
    entry.from = header.getFrom().getAddress();
    addRecipients(header.getToRecipients(), &entry.to);
    addRecipients(header.getCcRecipients(), &entry.to);
    addRecipients(header.getBccRecipients(), &entry.to);
    entry.subject = message.subject();
    entry.slides = int(message.slides().getTotalSlidesNum());
    for (int i = 0; i < message.parts().getPartCount(); ++i)
        ++entry.parts[std::size_t(kindOf(*message.parts().getBodypartByIndex(i)))];
    entry.octets = message.octets.size();
    entry.state = message.state();
    return entry;
}

QString typeText(int type)
{
    const char *name = QvlMessageType::nameOf(static_cast<unsigned char>(type));
    return name ? QString::fromLatin1(name) : QString::number(type);
}

} // namespace MessageList
