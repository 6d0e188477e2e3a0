#include "render/text.h"

#include "view/terminal_text.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr qsizetype LongestText = 20'000; // characters; more than fit on any page
constexpr qsizetype LongestDrawnName = 200;
constexpr QChar Ellipsis(0x2026);

QString withLineSeparators(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (const char16_t end : {u'\n', u'\r', u'\u2029'})
        text.replace(QChar(end), QChar::LineSeparator);
    return text;
}

QTextOption textOptionFor(const QString &text)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    const bool fromRight = text.isRightToLeft();
    option.setTextDirection(fromRight ? Qt::RightToLeft : Qt::LeftToRight);
    option.setAlignment(fromRight ? Qt::AlignRight : Qt::AlignLeft);
    return option;
}

// Lays out lines until one does not fit. Returns the number of lines that fit, at least 1.
int layOutLines(QTextLayout *layout, const QSizeF &size)
{
    int fitting = 0;
    double bottom = 0;
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(size.width());
        if (fitting > 0 && bottom + line.height() > size.height())
            break;
        line.setPosition({0, bottom});
        bottom += line.height();
        ++fitting;
    }
    layout->endLayout();
    return fitting;
}

// Lays out as much of @p text as can fit. Returns the number of lines that fit, at least 1.
int layOutBeginning(QTextLayout *layout, const QString &text, const QSizeF &size, const QFont &font)
{
    const QString beginning = fittingText(text, size, font.pixelSize());
    layout->setFont(font);
    layout->setText(beginning);
    layout->setTextOption(textOptionFor(beginning));
    return layOutLines(layout, size);
}

bool hasAllOf(const QString &text, const QTextLayout &layout, int count)
{
    const QTextLine last = layout.lineAt(count - 1);
    return last.textStart() + last.textLength() >= text.size();
}

// The height of @p count lines, rounded up.
int heightOf(const QTextLayout &layout, int count)
{
    if (count == 0)
        return 0;
    const QTextLine last = layout.lineAt(count - 1);
    return int(std::ceil(last.y() + last.height()));
}

QString elidedAt(const QString &text, qsizetype lineStart, const QFont &font, double width)
{
    const QString line = text.sliced(lineStart).section(QChar::LineSeparator, 0, 0) + Ellipsis;
    return text.first(lineStart) + QFontMetricsF(font).elidedText(line, Qt::ElideRight, width);
}

QString shownText(const QvlMessage &message, const MMS_COMP_SMILMultipartBodypart &part)
{
    QString text = message.text(part);
    if (const qsizetype end = text.indexOf(QChar(0)); end >= 0)
        text.truncate(end);
    if (text.size() > LongestText)
        text = text.first(LongestText - 1) + Ellipsis;
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return withLineSeparators(text);
}

} // namespace

QString Texts::find(const MMS_COMP_SMILMultipartBodypart &part)
{
    const auto known = m_texts.constFind(&part);
    return known != m_texts.constEnd() ? *known
                                       : *m_texts.insert(&part, shownText(m_message, part));
}

QFont pictureFont(double pixels)
{
    QFont font(QStringLiteral("sans-serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(qRound(pixels), 1));
    font.setHintingPreference(QFont::PreferNoHinting); // lines break alike at every scale
    return font;
}

QString fittingText(const QString &text, const QSizeF &size, double height)
{
    constexpr double narrowest = 1.0 / 8; // width of a letter, relative to its height
    const double columns = size.width() / (height * narrowest) + 1;
    const double lines = size.height() / height + 1;
    return text.left(qsizetype(std::min(columns * lines, double(LongestText))));
}

bool textFits(const QString &text, const QSizeF &size, const QFont &font)
{
    if (size.isEmpty() || text.isEmpty())
        return text.isEmpty();
    QTextLayout layout;
    const int count = layOutBeginning(&layout, text, size, font);
    return hasAllOf(text, layout, count) && heightOf(layout, count) <= std::ceil(size.height());
}

TextLines::TextLines(const QString &text, const QSizeF &most, const QFont &font)
{
    if (most.isEmpty() || text.isEmpty()) {
        m_isWhole = text.isEmpty();
        return;
    }
    m_count = layOutBeginning(&m_layout, text, most, font);
    const bool hasAllLines = hasAllOf(text, m_layout, m_count);
    m_isWhole = hasAllLines && height() <= std::ceil(most.height());
    if (hasAllLines)
        return;
    const int start = m_layout.lineAt(m_count - 1).textStart();
    m_layout.setText(elidedAt(m_layout.text(), start, font, most.width()));
    m_count = std::min(layOutLines(&m_layout, most), m_count);
}

int TextLines::height() const
{
    return heightOf(m_layout, m_count);
}

void TextLines::draw(QPainter *painter, const QPointF &corner) const
{
    for (int i = 0; i < m_count; ++i)
        m_layout.lineAt(i).draw(painter, corner);
}

bool drawText(QPainter *painter, const QRectF &area, const QString &text)
{
    const TextLines lines(text, area.size(), painter->font());
    painter->save();
    painter->setClipRect(area, Qt::IntersectClip);
    lines.draw(painter, area.topLeft());
    painter->restore();
    return lines.isWhole();
}

void drawName(QPainter *painter, const QRectF &area, int flags, const QString &name)
{
    const QString text = TerminalText::visible(name.left(LongestDrawnName)).left(LongestDrawnName);
    painter->drawText(area, flags | Qt::TextSingleLine,
                      QFontMetricsF(painter->font())
                          .elidedText(text, Qt::ElideMiddle, std::max(area.width(), 0.0)));
}
