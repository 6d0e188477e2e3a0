#include "compose/read_back.h"

#include "input/message.h"
#include "view/header_view.h"

#include <algorithm>
#include <array>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

// The decoder changes the values of these fields.
bool changesInDecoder(const QString &field)
{
    constexpr std::array names{"Content-Type", "Date", "Expiry", "Sender-Visibility"};
    return std::ranges::any_of(names,
                               [&](const char *name) { return field == QLatin1String(name); });
}

// The decoder keeps the terminator of a text that begins with a non-ASCII character.
QString withoutZero(QString text)
{
    return text.remove(QChar::Null);
}

QString changedField(const Message &sent, const Message &read)
{
    const QList<FieldView> readFields = headerView(read.header());
    for (const FieldView &field : headerView(sent.header())) {
        const bool same = std::ranges::any_of(readFields, [&](const FieldView &other) {
            return other.name == field.name && withoutZero(other.text) == field.text;
        });
        if (!same && !changesInDecoder(field.name))
            return field.name;
    }
    return QString();
}

QString changedPart(const Message &sent, const Message &read)
{
    if (sent.parts().getPartCount() != read.parts().getPartCount())
        return QStringLiteral("%1 parts").arg(sent.parts().getPartCount());
    for (int i = 0; i < sent.parts().getPartCount(); ++i) {
        const Part &part = *sent.parts().getBodypartByIndex(i);
        const Part &other = *read.parts().getBodypartByIndex(i);
        if (part.getContentLocation() != other.getContentLocation()
            || part.getMimeFormat().compare(other.getMimeFormat(), Qt::CaseInsensitive) != 0
            || part.getBodyData() != other.getBodyData())
            return part.getContentLocation();
    }
    return QString();
}

} // namespace

QString whatChanges(const Message &sent)
{
    const auto read = decodeMessage(sent.octets);
    if (read->isRefused())
        return QStringLiteral("the message");
    if (QString field = changedField(sent, *read); !field.isEmpty())
        return field;
    if (QString part = changedPart(sent, *read); !part.isEmpty())
        return part;
    const bool sameSlides = read->smil.isEmpty() || read->smilText() == read->smil;
    return sameSlides ? QString() : QStringLiteral("the slides");
}
