#include "render/missing.h"

#include "view/terminal_text.h"

void Missing::add(const QString &one)
{
    if (count++ == 0)
        first = one;
}

QString Missing::text(const QString &what, const QString &limit) const
{
    if (count == 0)
        return QString();
    return QStringLiteral("%1: %2, from %3 on (%4)")
        .arg(what)
        .arg(count)
        .arg(TerminalText::visible(first), limit);
}

QString limitText(const QString &limit, const char *option)
{
    return QStringLiteral("limit: %1; raise it with %2").arg(limit, QLatin1String(option));
}
