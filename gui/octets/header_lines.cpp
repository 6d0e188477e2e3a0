#include "octets/header_lines.h"

#include "view/changes_view.h"
#include "view/message_view.h"

#include <QCoreApplication>

namespace {

struct HeaderTexts
{
    Q_DECLARE_TR_FUNCTIONS(HeaderLines)
};

} // namespace

QList<FieldView> headerLines(const Message &message)
{
    QList<FieldView> lines = fieldViews(message);
    if (const qsizetype more = lines.size() - MostHeaderLines; more > 0) {
        lines.resize(MostHeaderLines);
        lines += {HeaderTexts::tr("%n more field(s)", nullptr, int(more)), {}};
    }
    for (const QString &line : changeLines(message))
        lines += {HeaderTexts::tr("Changed to read it"), line.trimmed()};
    for (FieldView &line : lines) {
        if (line.text.size() > LongestHeaderLine)
            line.text = line.text.left(LongestHeaderLine) + QChar(0x2026);
    }
    return lines;
}
