#include "writing/compose_window.h"

#include "stage/stage.h"
#include "view/terminal_text.h"
#include "writing/attachments_list.h"
#include "writing/header_form.h"
#include "writing/options_form.h"
#include "writing/size_gauge.h"
#include "writing/slide_form.h"
#include "writing/slide_strip.h"

#include <QAbstractSpinBox>
#include <QAction>
#include <QFileInfo>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr QLatin1StringView Geometry("writing/geometry");
constexpr QLatin1StringView Splitter("writing/splitter");
constexpr QSize UsualSize(980, 760);
constexpr int NarrowWidth = 700; // pixels
constexpr std::chrono::milliseconds DrawingDelay{150}; // after the last change

} // namespace

ComposeWindow::ComposeWindow(std::unique_ptr<Editor> editor, std::unique_ptr<MessageDraft> draft,
                             Questions questions)
    : m_editor(std::move(editor)), m_questions(std::move(questions)),
      m_header(new HeaderForm(m_editor.get(), this)),
      m_slide(new SlideForm(m_editor.get(), m_questions, this)),
      m_attachments(new AttachmentsList(m_editor.get(), m_questions, this)),
      m_options(new OptionsForm(m_editor.get(), this)),
      m_slides(new SlideStrip(m_editor.get(), this)), m_stage(new Stage(this)),
      m_size(new SizeGauge(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    if (draft) {
        m_keeper = std::make_unique<DraftKeeper>(m_editor.get(), std::move(draft),
                                                 std::make_unique<SystemDraftTimer>());
        connect(m_keeper.get(), &DraftKeeper::failed, this, &ComposeWindow::report);
    }
    makeCenter();
    makeMenus();
    connectParts();
    m_slide->setSlide(0);
    updateTitle();
    drawSlides();
    restoreLayout();
}

ComposeWindow::~ComposeWindow() = default;

void ComposeWindow::makeCenter()
{
    auto *options = new QGroupBox(tr("Options"), this);
    auto *optionsLayout = new QVBoxLayout(options);
    optionsLayout->addWidget(m_options);
    auto *form = new QWidget(this);
    auto *formLayout = new QVBoxLayout(form);
    formLayout->addWidget(m_header);
    formLayout->addWidget(m_slide);
    formLayout->addWidget(m_attachments);
    formLayout->addWidget(options);
    formLayout->addStretch();
    auto *scroll = new QScrollArea(this);
    scroll->setWidget(form);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);
    m_splitter = new QSplitter(this);
    m_splitter->addWidget(m_slides);
    m_splitter->addWidget(scroll);
    m_splitter->addWidget(m_stage);
    m_splitter->setStretchFactor(1, 3);
    m_splitter->setStretchFactor(2, 2);
    m_splitter->setChildrenCollapsible(false);
    setCentralWidget(m_splitter);
    statusBar()->addPermanentWidget(m_size);
    m_stage->setAccessibleName(tr("Preview of the slide"));
    for (QWidget *widget : findChildren<QWidget *>()) {
        const bool isText =
            qobject_cast<QLineEdit *>(widget) || qobject_cast<QPlainTextEdit *>(widget);
        if (isText)
            widget->setAcceptDrops(false); // the window takes files, and texts can be pasted
        if (isText || qobject_cast<QAbstractSpinBox *>(widget))
            widget->installEventFilter(this);
    }
    m_header->setFocus();
}

void ComposeWindow::makeMenus()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Save"), this, &ComposeWindow::save)->setShortcut(QKeySequence::Save);
    file->addAction(tr("Save &As…"), this, &ComposeWindow::saveAs)
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    file->addSeparator();
    file->addAction(tr("&Close"), this, &QWidget::close)->setShortcut(QKeySequence::Close);
    QMenu *edit = menuBar()->addMenu(tr("&Edit"));
    QAction *undo = m_editor->steps()->createUndoAction(this, tr("&Undo"));
    QAction *redo = m_editor->steps()->createRedoAction(this, tr("&Redo"));
    undo->setShortcuts(QKeySequence::Undo);
    redo->setShortcuts(QKeySequence::Redo);
    edit->addActions({undo, redo});
    menuBar()->addMenu(tr("&Slide"))->addActions(m_slides->commands());
}

void ComposeWindow::connectParts()
{
    connect(m_slides, &SlideStrip::currentChanged, m_slide, &SlideForm::setSlide);
    connect(m_slides, &SlideStrip::currentChanged, this, &ComposeWindow::drawCurrent);
    connect(m_slides, &SlideStrip::refused, this, &ComposeWindow::report);
    connect(m_slide, &SlideForm::refused, this, &ComposeWindow::report);
    connect(m_slide, &SlideForm::reading, this, &ComposeWindow::wait);
    connect(m_attachments, &AttachmentsList::refused, this, &ComposeWindow::report);
    connect(m_stage, &Stage::resized, this, &ComposeWindow::drawCurrent);
    connect(m_editor.get(), &Editor::changed, this, &ComposeWindow::scheduleDrawing);
    connect(m_editor->steps(), &QUndoStack::cleanChanged, this, &ComposeWindow::updateTitle);
    m_drawing.setSingleShot(true);
    m_drawing.setInterval(DrawingDelay);
    connect(&m_drawing, &QTimer::timeout, this, &ComposeWindow::drawSlides);
}

// The message's steps undo typing, too; lines of text would undo their own.
bool ComposeWindow::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo))
        return false;
    event->ignore();
    return true;
}

void ComposeWindow::scheduleDrawing()
{
    m_size->setSize(m_editor->size(), Editor::sizeLimit());
    m_drawing.start();
}

void ComposeWindow::drawSlides()
{
    m_size->setSize(m_editor->size(), Editor::sizeLimit());
    m_drawn = m_editor->encodeDraft().pdu;
    m_slides->draw(m_drawn);
    drawCurrent();
}

void ComposeWindow::drawCurrent()
{
    m_drawer.reset();
    if (m_drawn.isEmpty())
        return m_stage->setImage({}, tr("There is no preview."));
    m_drawer = std::make_unique<SlideDrawer>(m_drawn);
    connect(m_drawer.get(), &SlideDrawer::drawn, this, [this](const DrawnSlide &slide) {
        m_stage->setImage(slide.image, tr("The slide takes too much time or memory to draw."));
    });
    SlideRequest request;
    request.slide = m_slides->current();
    request.area = m_stage->area();
    m_drawer->draw(request);
}

// Disables the window until a picture was read, because it belongs to the slide that has its place.
void ComposeWindow::wait(bool isWaiting)
{
    if (isWaiting && !m_focus)
        m_focus = focusWidget();
    m_splitter->setEnabled(!isWaiting);
    menuBar()->setEnabled(!isWaiting); // with the keys of its commands
    if (isWaiting)
        report(tr("The picture is being read"));
    else
        statusBar()->clearMessage();
    if (!isWaiting && m_focus)
        std::exchange(m_focus, {})->setFocus();
}

void ComposeWindow::restoreLayout()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(Geometry).toByteArray()))
        resize(UsualSize.boundedTo(screen()->availableSize()));
    m_splitter->restoreState(settings.value(Splitter).toByteArray());
}

// On a narrow screen, such as a phone's, the slides are above, and the preview is left out.
void ComposeWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    const bool isNarrow = width() < NarrowWidth;
    m_splitter->setOrientation(isNarrow ? Qt::Vertical : Qt::Horizontal);
    m_slides->setRow(isNarrow);
    m_stage->setVisible(!isNarrow);
}

void ComposeWindow::saveLayout() const
{
    QSettings settings;
    settings.setValue(Geometry, saveGeometry());
    settings.setValue(Splitter, m_splitter->saveState());
}

void ComposeWindow::updateTitle()
{
    const QString name = m_fileName.isEmpty()
        ? tr("New Message")
        : TerminalText::visible(QFileInfo(m_fileName).fileName());
    setWindowTitle(name + QLatin1StringView("[*]"));
    setWindowModified(m_editor->isModified());
}

void ComposeWindow::report(const QString &line)
{
    constexpr int Milliseconds = 15'000;
    statusBar()->showMessage(line, Milliseconds);
}
