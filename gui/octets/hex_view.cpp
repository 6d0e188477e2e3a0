#include "octets/hex_view.h"

#include <QAction>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int OffsetDigits = 8;
constexpr float OffsetOpacity = 0.6F; // of the color of texts
constexpr int HexDigits = 3; // of an octet, with a blank

QChar asciiOf(char octet)
{
    return octet >= ' ' && octet <= '~' ? QLatin1Char(octet) : QChar(0xB7);
}

QString hexOf(char octet)
{
    return QStringLiteral("%1").arg(uchar(octet), 2, 16, QLatin1Char('0')).toUpper();
}

} // namespace

HexView::HexView(QWidget *parent) : QAbstractScrollArea(parent)
{
    setAccessibleName(tr("Octets"));
    setFocusPolicy(Qt::StrongFocus);
    setLayoutDirection(Qt::LeftToRight); // octets have no other order
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setCursor(Qt::IBeamCursor);
    auto *copyHexAction = new QAction(tr("Copy as &Hex"), this);
    copyHexAction->setShortcut(QKeySequence::Copy);
    auto *copyTextAction = new QAction(tr("Copy as &Text"), this);
    for (QAction *action : {copyHexAction, copyTextAction})
        action->setShortcutContext(Qt::WidgetShortcut);
    connect(copyHexAction, &QAction::triggered, this, &HexView::copyHex);
    connect(copyTextAction, &QAction::triggered, this, &HexView::copyText);
    addActions({copyHexAction, copyTextAction});
    setContextMenuPolicy(Qt::ActionsContextMenu);
    updateFont();
}

void HexView::updateFont()
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (font != this->font())
        setFont(font);
    m_digit = std::max(1, fontMetrics().horizontalAdvance(QLatin1Char('0')));
    m_line = std::max(1, fontMetrics().height());
    updateScrollBars();
}

void HexView::changeEvent(QEvent *event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateFont();
}

void HexView::setOctets(const QByteArray &octets)
{
    m_octets = octets;
    m_cursor = m_anchor = 0;
    updateScrollBars();
    verticalScrollBar()->setValue(0);
    setAccessibleDescription({});
    viewport()->update();
}

qsizetype HexView::markedOffset() const
{
    return std::min(m_cursor, m_anchor);
}

qsizetype HexView::markedLength() const
{
    return m_octets.isEmpty() ? 0 : std::max(m_cursor, m_anchor) - markedOffset() + 1;
}

bool HexView::isMarked(qsizetype octet) const
{
    return octet >= markedOffset() && octet < markedOffset() + markedLength();
}

void HexView::mark(qsizetype offset, qsizetype length)
{
    if (m_octets.isEmpty())
        return;
    const qsizetype last = m_octets.size() - 1;
    m_cursor = std::clamp<qsizetype>(offset, 0, last);
    m_anchor = std::clamp<qsizetype>(m_cursor + std::max<qsizetype>(length, 1) - 1, 0, last);
    const int line = int(m_cursor / OctetsInLine);
    const int top = verticalScrollBar()->value();
    if (line < top || line >= top + visibleLines())
        verticalScrollBar()->setValue(line - visibleLines() / 4);
    describeCursor();
    viewport()->update();
}

void HexView::describeCursor()
{
    setAccessibleDescription(tr("octet %1: %2").arg(m_cursor).arg(hexOf(m_octets[m_cursor])));
}

qsizetype HexView::lineCount() const
{
    return (m_octets.size() + OctetsInLine - 1) / OctetsInLine;
}

int HexView::visibleLines() const
{
    return std::max(1, viewport()->height() / m_line);
}

int HexView::leftEdge() const
{
    return m_digit - horizontalScrollBar()->value();
}

int HexView::hexLeft(int column) const
{
    return leftEdge() + m_digit * (OffsetDigits + 2 + column * HexDigits);
}

int HexView::textLeft(int column) const
{
    return hexLeft(OctetsInLine) + m_digit * (1 + column);
}

void HexView::updateScrollBars()
{
    verticalScrollBar()->setRange(0, int(std::max<qsizetype>(0, lineCount() - visibleLines())));
    verticalScrollBar()->setPageStep(visibleLines());
    const int width = textLeft(OctetsInLine) - leftEdge() + 2 * m_digit;
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
}

void HexView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void HexView::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    const qsizetype first = verticalScrollBar()->value();
    const qsizetype end = std::min<qsizetype>(lineCount(), first + visibleLines() + 1);
    for (qsizetype line = first; line < end; ++line)
        drawLine(&painter, line, int(line - first) * m_line);
}

void HexView::drawLine(QPainter *painter, qsizetype line, int top)
{
    ++m_drawnLines;
    const int baseline = top + fontMetrics().ascent();
    const qsizetype begin = line * OctetsInLine;
    const QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    QColor offset = palette().color(QPalette::Text);
    offset.setAlphaF(OffsetOpacity);
    painter->setPen(offset);
    painter->drawText(leftEdge(), baseline,
                      QStringLiteral("%1").arg(begin, OffsetDigits, 10, QLatin1Char(' ')));
    for (int column = 0; column < OctetsInLine && begin + column < m_octets.size(); ++column) {
        const bool marked = isMarked(begin + column);
        if (marked) {
            const QColor color = palette().color(group, QPalette::Highlight);
            painter->fillRect(hexLeft(column) - m_digit / 2, top, m_digit * HexDigits, m_line,
                              color);
            painter->fillRect(textLeft(column), top, m_digit, m_line, color);
        }
        painter->setPen(
            palette().color(group, marked ? QPalette::HighlightedText : QPalette::Text));
        painter->drawText(hexLeft(column), baseline, hexOf(m_octets[begin + column]));
        painter->drawText(textLeft(column), baseline, asciiOf(m_octets[begin + column]));
    }
}

qsizetype HexView::octetAt(QPoint place) const
{
    const qsizetype line = verticalScrollBar()->value() + place.y() / m_line;
    const bool isText = place.x() >= textLeft(0);
    const int column = isText ? (place.x() - textLeft(0)) / m_digit
                              : (place.x() - hexLeft(0)) / (m_digit * HexDigits);
    return line * OctetsInLine + std::clamp(column, 0, OctetsInLine - 1);
}

void HexView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        moveCursor(octetAt(event->position().toPoint()),
                   event->modifiers().testFlag(Qt::ShiftModifier));
}

void HexView::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        moveCursor(octetAt(event->position().toPoint()), true);
}

void HexView::moveCursor(qsizetype octet, bool extends)
{
    if (m_octets.isEmpty())
        return;
    m_cursor = std::clamp<qsizetype>(octet, 0, m_octets.size() - 1);
    if (!extends)
        m_anchor = m_cursor;
    scrollToCursor();
    describeCursor();
    viewport()->update();
    emit chosen(m_cursor);
}

void HexView::scrollToCursor()
{
    const int line = int(m_cursor / OctetsInLine);
    QScrollBar *bar = verticalScrollBar();
    bar->setValue(std::clamp(bar->value(), line - visibleLines() + 1, line));
}

void HexView::keyPressEvent(QKeyEvent *event)
{
    const bool extends = event->modifiers().testFlag(Qt::ShiftModifier);
    const bool isWhole = event->modifiers().testFlag(Qt::ControlModifier);
    const qsizetype page = qsizetype(visibleLines()) * OctetsInLine;
    const qsizetype line = m_cursor / OctetsInLine * OctetsInLine;
    switch (event->key()) {
    case Qt::Key_Left:
        return moveCursor(m_cursor - 1, extends);
    case Qt::Key_Right:
        return moveCursor(m_cursor + 1, extends);
    case Qt::Key_Up:
        return moveCursor(m_cursor - OctetsInLine, extends);
    case Qt::Key_Down:
        return moveCursor(m_cursor + OctetsInLine, extends);
    case Qt::Key_PageUp:
        return moveCursor(m_cursor - page, extends);
    case Qt::Key_PageDown:
        return moveCursor(m_cursor + page, extends);
    case Qt::Key_Home:
        return moveCursor(isWhole ? 0 : line, extends);
    case Qt::Key_End:
        return moveCursor(isWhole ? m_octets.size() - 1 : line + OctetsInLine - 1, extends);
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

QByteArray HexView::markedOctets() const
{
    return m_octets.mid(markedOffset(), std::min(markedLength(), MostCopied));
}

void HexView::copyHex() const
{
    QGuiApplication::clipboard()->setText(QString::fromLatin1(markedOctets().toHex(' ').toUpper()));
}

void HexView::copyText() const
{
    QString text;
    for (const char octet : markedOctets())
        text += asciiOf(octet);
    QGuiApplication::clipboard()->setText(text);
}
