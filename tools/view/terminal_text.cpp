#include "view/terminal_text.h"

#include <algorithm>
#include <clocale>
#include <cwchar>

namespace {

constexpr int LongestCell = 40;

// wcwidth() depends on the locale, and the user's locale may support only ASCII.
void useUnicodeWidths()
{
    static const bool done = std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr;
    Q_UNUSED(done);
}

int width(char32_t character)
{
    const int columns = wcwidth(static_cast<wchar_t>(character));
    return columns < 0 ? 1 : columns;
}

} // namespace

bool TerminalText::hasVisibleForm(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format: // such as changes of the writing direction
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

QString TerminalText::visible(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (char32_t character : text.toUcs4()) {
        if (hasVisibleForm(character))
            result += QChar::fromUcs4(character);
        else
            result +=
                QLatin1String("\\u{") + QString::number(uint(character), 16) + QLatin1Char('}');
    }
    return result;
}

int TerminalText::width(const QString &text)
{
    useUnicodeWidths();
    int columns = 0;
    for (char32_t character : text.toUcs4())
        columns += ::width(character);
    return columns;
}

QString TerminalText::truncated(const QString &text, int longest)
{
    if (width(text) <= longest)
        return text;
    QString result;
    int columns = 1; // the ellipsis
    for (char32_t character : text.toUcs4()) {
        columns += ::width(character);
        if (columns > longest)
            break;
        result += QChar::fromUcs4(character);
    }
    return result + QChar(0x2026);
}

QString TerminalText::endOf(const QString &text, int longest)
{
    int columns = width(text);
    if (columns <= longest)
        return text;
    const QList<uint> characters = text.toUcs4();
    qsizetype left = 0;
    for (; left < characters.size() && columns + 1 > longest; ++left) // with the ellipsis
        columns -= ::width(characters[left]);
    return QChar(0x2026)
        + QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.constData()) + left,
                            characters.size() - left);
}

QString TerminalText::padded(const QString &text, int columns, bool alignRight)
{
    const QString padding(std::max(columns - width(text), 0), QLatin1Char(' '));
    return alignRight ? padding + text : text + padding;
}

QStringList TerminalText::table(const QList<Column> &columns, const QList<QStringList> &rows,
                                const QString &indent)
{
    QList<QStringList> cells(1);
    for (const Column &column : columns)
        cells.front() += column.title;
    for (const QStringList &row : rows) {
        QStringList shown;
        for (const QString &cell : row)
            shown += truncated(visible(cell), LongestCell);
        cells += shown;
    }
    QList<int> widths(columns.size());
    for (const QStringList &row : cells) {
        for (qsizetype i = 0; i < columns.size(); ++i)
            widths[i] = std::max(widths[i], width(row[i]));
    }
    QStringList lines;
    for (const QStringList &row : cells) {
        QString line = indent;
        for (qsizetype i = 0; i < columns.size(); ++i)
            line += padded(row[i], widths[i], columns[i].alignRight) + QLatin1String("  ");
        while (line.endsWith(QLatin1Char(' ')))
            line.chop(1);
        lines += line;
    }
    return lines;
}
