/*
 * The octets of a file: their offsets, in hexadecimal digits, and as ASCII. Draws only the lines
 * that are seen.
 */
#pragma once

#include <QAbstractScrollArea>
#include <QByteArray>

class HexView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    static constexpr int OctetsInLine = 16;
    static constexpr qsizetype MostCopied = 1 << 20;

    explicit HexView(QWidget *parent = nullptr);

    /// Shows @p octets, which are shared.
    void setOctets(const QByteArray &octets);
    /// Marks @p length octets from @p offset on, and scrolls to them. Both are limited to what
    /// there is.
    void mark(qsizetype offset, qsizetype length);

    /// The octet of the cursor; 0 without octets.
    qsizetype cursor() const { return m_cursor; }
    /// The first marked octet, and how many are marked.
    qsizetype markedOffset() const;
    qsizetype markedLength() const;
    /// Lines that were drawn so far.
    int drawnLines() const { return m_drawnLines; }

    /// Copies the marked octets, at most MostCopied, to the clipboard as hexadecimal digits, or as
    /// ASCII.
    void copyHex() const;
    void copyText() const;

signals:
    /// The user put the cursor at @p octet.
    void chosen(qsizetype octet);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void drawLine(QPainter *painter, qsizetype line, int top);
    void updateFont();
    void updateScrollBars();
    void moveCursor(qsizetype octet, bool extends);
    void scrollToCursor();
    void describeCursor();
    qsizetype lineCount() const;
    int visibleLines() const;
    qsizetype octetAt(QPoint place) const;
    int hexLeft(int column) const;
    int textLeft(int column) const;
    int leftEdge() const;
    bool isMarked(qsizetype octet) const;
    QByteArray markedOctets() const;

    QByteArray m_octets;
    qsizetype m_cursor = 0;
    qsizetype m_anchor = 0; ///< the other end of what is marked
    int m_digit = 1; ///< width of a digit
    int m_line = 1; ///< height of a line
    int m_drawnLines = 0;
};
