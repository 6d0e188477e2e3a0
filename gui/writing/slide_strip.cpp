#include "writing/slide_strip.h"

#include "edit/editor.h"

#include <QAction>
#include <QDropEvent>
#include <QListWidget>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize ThumbnailSize(88, 108);

} // namespace

SlideStrip::SlideStrip(Editor *editor, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_list(new QListWidget(this))
{
    makeList();
    addCommand(tr("&Add Slide"), Qt::CTRL | Qt::Key_Return, [this] { addSlide(); });
    addCommand(tr("Du&plicate Slide"), Qt::CTRL | Qt::Key_D,
               [this] { perform(m_editor->duplicateSlide(current()), current() + 1); });
    m_delete = addCommand(tr("De&lete Slide"), Qt::CTRL | Qt::Key_Delete,
                          [this] { perform(m_editor->deleteSlide(current()), current()); });
    m_up = addCommand(tr("Move Slide &Up"), Qt::ALT | Qt::Key_Up, [this] { moveBy(-1); });
    m_down = addCommand(tr("Move Slide Do&wn"), Qt::ALT | Qt::Key_Down, [this] { moveBy(1); });
    m_layout = new QVBoxLayout(this);
    m_layout->setContentsMargins({});
    m_layout->addWidget(m_list, 1);
    m_buttons = new QVBoxLayout;
    m_layout->addLayout(m_buttons);
    for (QAction *action : std::as_const(m_commands).first(3)) {
        auto *button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setFocusPolicy(Qt::StrongFocus);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        m_buttons->addWidget(button);
    }
    setRow(false);
    connect(editor, &Editor::changed, this, &SlideStrip::follow);
    follow();
}

SlideStrip::~SlideStrip() = default;

void SlideStrip::makeList()
{
    m_list->setAccessibleName(tr("Slides"));
    m_list->setIconSize(ThumbnailSize);
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    m_list->setDefaultDropAction(Qt::MoveAction);
    m_list->setSpacing(2);
    m_list->viewport()->installEventFilter(this);
    connect(m_list, &QListWidget::currentRowChanged, this, &SlideStrip::follow);
}

QAction *SlideStrip::addCommand(const QString &text, const QKeySequence &keys,
                                const std::function<void()> &run)
{
    auto *action = new QAction(text, this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, run);
    m_commands += action;
    return action;
}

void SlideStrip::setRow(bool isRow)
{
    const QSize place = ThumbnailSize + QSize(70, 30);
    m_list->setFlow(isRow ? QListView::LeftToRight : QListView::TopToBottom);
    m_list->setMinimumWidth(isRow ? 0 : place.width());
    m_list->setMaximumWidth(isRow ? QWIDGETSIZE_MAX : place.width());
    m_list->setMaximumHeight(isRow ? place.height() : QWIDGETSIZE_MAX);
    m_list->setHorizontalScrollBarPolicy(isRow ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    m_buttons->setDirection(isRow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

int SlideStrip::current() const
{
    return std::max(0, m_list->currentRow());
}

void SlideStrip::setCurrent(int slide)
{
    m_list->setCurrentRow(std::clamp(slide, 0, m_list->count() - 1));
}

void SlideStrip::addSlide()
{
    perform(m_editor->addSlide(current() + 1), current() + 1);
}

void SlideStrip::perform(const QString &problem, int newCurrent)
{
    if (problem.isEmpty())
        setCurrent(newCurrent);
    else
        emit refused(problem);
}

void SlideStrip::moveBy(int rows)
{
    const int to = current() + rows;
    if (to >= 0 && to < m_editor->slideCount())
        perform(m_editor->moveSlide(current(), to), to);
}

// A slide that is dropped moves in the message, and the list follows the message.
bool SlideStrip::eventFilter(QObject *object, QEvent *event)
{
    if (object != m_list->viewport() || event->type() != QEvent::Drop)
        return false;
    auto *drop = static_cast<QDropEvent *>(event);
    if (drop->source() != m_list)
        return false;
    const QPoint place = drop->position().toPoint();
    const QModelIndex target = m_list->indexAt(place);
    const QRect area = m_list->visualRect(target);
    const bool isAfter = m_list->flow() == QListView::LeftToRight
        ? (place.x() > area.center().x()) != isRightToLeft()
        : place.y() > area.center().y();
    const int before = target.isValid() ? target.row() + int(isAfter) : m_list->count();
    const int from = current();
    const int to = before > from ? before - 1 : before;
    drop->setDropAction(Qt::IgnoreAction); // the list itself moves nothing
    drop->accept();
    if (to != from)
        perform(m_editor->moveSlide(from, to), to);
    return true;
}

void SlideStrip::follow()
{
    const int count = m_editor->slideCount();
    {
        const QSignalBlocker blocker(m_list);
        while (m_list->count() > count)
            delete m_list->takeItem(m_list->count() - 1);
        while (m_list->count() < count) {
            auto *item = new QListWidgetItem(tr("Slide %1").arg(m_list->count() + 1), m_list);
            item->setSizeHint({0, ThumbnailSize.height() + 4}); // also before it is drawn
        }
        if (m_list->currentRow() < 0)
            m_list->setCurrentRow(0);
    }
    m_delete->setEnabled(count > 1);
    m_up->setEnabled(current() > 0);
    m_down->setEnabled(current() + 1 < count);
    if (std::exchange(m_chosen, current()) != current())
        emit currentChanged(current());
}

void SlideStrip::draw(const QByteArray &pdu)
{
    m_drawer.reset();
    m_drawn = 0;
    if (pdu.isEmpty())
        return;
    m_drawer = std::make_unique<SlideDrawer>(pdu);
    connect(m_drawer.get(), &SlideDrawer::drawn, this, &SlideStrip::showDrawn);
    drawNext();
}

void SlideStrip::drawNext()
{
    if (m_drawn >= m_list->count())
        return;
    SlideRequest request;
    request.slide = m_drawn;
    request.area = (QSizeF(ThumbnailSize) * devicePixelRatioF()).toSize();
    m_drawer->draw(request);
}

void SlideStrip::showDrawn(const DrawnSlide &slide)
{
    QPixmap picture = QPixmap::fromImage(slide.image);
    picture.setDevicePixelRatio(devicePixelRatioF());
    if (QListWidgetItem *item = m_list->item(slide.slide))
        item->setIcon(picture);
    ++m_drawn;
    drawNext();
}
