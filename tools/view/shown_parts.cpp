#include "view/shown_parts.h"

#include "input/message.h"

#include <algorithm>
#include <array>

namespace {

QStringView firstLineOf(QStringView text)
{
    constexpr std::array<QChar, 2> ends{u'\n', QChar::Null};
    const auto *end = std::ranges::find_first_of(text, ends);
    return text.first(end - text.begin()).trimmed();
}

QString shortened(QStringView line)
{
    if (line.size() <= ShownParts::LongestLine)
        return line.toString();
    line.truncate(ShownParts::LongestLine);
    if (line.back().isHighSurrogate())
        line.chop(1);
    return line.toString() + QChar(0x2026);
}

} // namespace

ShownParts::ShownParts(const Message &message) : m_message(message)
{
    const MMS_COMP_SMILMultipart &parts = message.parts();
    for (int i = 0; i < parts.getPartCount(); ++i)
        m_parts[parts.getBodypartByIndex(i)].index = i;
}

int ShownParts::indexOf(const Part &part)
{
    return m_parts[&part].index;
}

QString ShownParts::firstLine(const Part &part)
{
    std::optional<QString> &line = m_parts[&part].firstLine;
    if (!line)
        line = shortened(firstLineOf(m_message.text(part)));
    return *line;
}

int ShownParts::playDuration(Part &part)
{
    std::optional<int> &duration = m_parts[&part].playDuration;
    if (!duration)
        duration = part.getPlayDur();
    return *duration;
}
