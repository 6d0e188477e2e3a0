/*
 * The slides of the message that is written, as a strip of small pictures.
 */
#pragma once

#include "stage/slide_drawer.h"

#include <QList>
#include <QWidget>

#include <memory>

class Editor;
class QAction;
class QBoxLayout;
class QListWidget;

class SlideStrip : public QWidget
{
    Q_OBJECT

public:
    /// @p editor must exist as long as the strip.
    explicit SlideStrip(Editor *editor, QWidget *parent = nullptr);
    ~SlideStrip() override;

    /// The chosen slide, from 0.
    int current() const;
    void setCurrent(int slide);
    /// Adds a slide after the chosen one, and chooses it.
    void addSlide();
    /// Shows the slides in one row, or one below the other.
    void setRow(bool isRow);
    /// Draws the slides of the message @p pdu; none for an empty one.
    void draw(const QByteArray &pdu);

    /// Commands for a menu: add, duplicate, delete, move.
    const QList<QAction *> &commands() const { return m_commands; }

signals:
    void currentChanged(int slide);
    /// Something was not possible.
    void refused(const QString &why);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QAction *addCommand(const QString &text, const QKeySequence &keys,
                        const std::function<void()> &run);
    void makeList();
    void perform(const QString &problem, int newCurrent);
    void moveBy(int rows);
    void follow();
    void drawNext();
    void showDrawn(const DrawnSlide &slide);

    Editor *m_editor;
    QBoxLayout *m_layout;
    QBoxLayout *m_buttons;
    QListWidget *m_list;
    QList<QAction *> m_commands;
    QAction *m_delete;
    QAction *m_up;
    QAction *m_down;
    std::unique_ptr<SlideDrawer> m_drawer;
    int m_chosen = 0; ///< as currentChanged() said last
    int m_drawn = 0; ///< slides that were drawn
};
