#include "window/main_window.h"

#include "common/local_files.h"
#include "edit/opened_files.h"
#include "list/message_list_view.h"
#include "octets/header_panel.h"
#include "octets/octets_panel.h"
#include "octets/problems_panel.h"
#include "octets/smil_panel.h"
#include "stage/stage_panel.h"
#include "view/terminal_text.h"
#include "window/parts_panel.h"
#include "window/recent_files.h"
#include "window/state_bar.h"
#include "window/summary_panel.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QScreen>
#include <QScrollArea>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>

using TerminalText::visible;

namespace {

constexpr QLatin1StringView Geometry("window/geometry");
constexpr QLatin1StringView State("window/state");
constexpr QLatin1StringView Splitter("window/splitter");
constexpr QLatin1StringView Columns("window/columns");
constexpr QSize UsualSize(1280, 760);
constexpr int NarrowWidth = 700; // pixels, below which the list is above the message
constexpr int UsualPanels = 300; // pixels of the width
constexpr int UsualList = 450; // pixels of the width

bool isList(const QStringList &names)
{
    return names.size() > 1 || QFileInfo(names.first()).isDir();
}

} // namespace

MainWindow::MainWindow()
    : m_splitter(new QSplitter(this)), m_list(new MessageListView(m_splitter)),
      m_state(new StateBar(this)), m_center(new QStackedWidget(this)),
      m_stage(new StagePanel(m_center)), m_summary(new SummaryPanel(m_center)),
      m_header(new HeaderPanel(this)), m_parts(new PartsPanel(this)),
      m_problems(new ProblemsPanel(this)), m_smil(new SmilPanel(this)),
      m_octets(new OctetsPanel(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    setWindowTitle(tr("Multimedia Messages"));
    makeCenter();
    makePanels();
    connectPanels();
    makeFileMenu();
    makeMessageMenu();
    makeViewMenu();
    makeHelpMenu();
    enableActions();
    restoreLayout();
}

MainWindow::~MainWindow()
{
    for (QDockWidget *dock : std::as_const(m_docks))
        dock->disconnect(this); // they are hidden after the members of this class are gone
}

void MainWindow::makeCenter()
{
    auto *summary = new QScrollArea(m_center);
    summary->setWidgetResizable(true);
    summary->setWidget(m_summary);
    summary->setFrameShape(QFrame::NoFrame);
    summary->setAccessibleName(tr("Message"));
    m_center->addWidget(summary);
    m_center->addWidget(m_stage);
    auto *message = new QWidget(m_splitter);
    auto *layout = new QVBoxLayout(message);
    layout->setContentsMargins({});
    layout->addWidget(m_state);
    layout->addWidget(m_center, 1);
    m_splitter->addWidget(message);
    m_splitter->setChildrenCollapsible(false);
    m_list->hide();
    setCentralWidget(m_splitter);
    statusBar();
}

void MainWindow::makePanels()
{
    addPanel(tr("Details"), "details", m_header);
    addPanel(tr("Parts"), "parts", m_parts);
    addPanel(tr("Problems"), "problems", m_problems);
    addPanel(tr("SMIL"), "smil", m_smil);
    addPanel(tr("Octets"), "octets", m_octets);
    // Below, so that a problem and its place are visible together.
    m_docks[3]->hide();
    m_docks[4]->hide();
    addDockWidget(Qt::BottomDockWidgetArea, m_docks[3]);
    addDockWidget(Qt::BottomDockWidgetArea, m_docks[4]);
    tabifyDockWidget(m_docks[3], m_docks[4]);
    m_docks.first()->raise();
}

QDockWidget *MainWindow::addPanel(const QString &title, const char *name, QWidget *panel)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(QLatin1StringView(name)); // for the saved state
    dock->setWidget(panel);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    if (!m_docks.isEmpty())
        tabifyDockWidget(m_docks.last(), dock);
    m_docks += dock;
    connect(dock, &QDockWidget::visibilityChanged, this, [this, dock](bool isInFront) {
        if (isInFront)
            m_inFront.insert(dock);
        else
            m_inFront.remove(dock);
        dock->widget()->setEnabled(isInFront); // otherwise Tab goes through what nobody sees
    });
    return dock;
}

void MainWindow::connectPanels()
{
    connect(m_list, &MessageListView::current, this, &MainWindow::read);
    connect(m_list, &MessageListView::emptied, this, [this] { showResult({}); });
    connect(m_list, &MessageListView::opened, this, &MainWindow::openInNewWindow);
    connect(m_list, &MessageListView::reported, this, &MainWindow::report);
    connect(&m_reader, &MessageReader::done, this, &MainWindow::showResult);
    connect(m_stage, &StagePanel::reported, this, &MainWindow::report);
    connect(m_parts, &PartsPanel::reported, this, &MainWindow::report);
    connect(m_state, &StateBar::problemsWanted, this, &MainWindow::showProblems);
    connect(m_problems, &ProblemsPanel::octetChosen, m_octets, &OctetsPanel::mark);
    connect(m_problems, &ProblemsPanel::lineChosen, m_smil, &SmilPanel::markLine);
    connect(m_problems, &ProblemsPanel::octetWanted, this, [this] { showPlace(m_octets); });
    connect(m_problems, &ProblemsPanel::lineWanted, this, [this] { showPlace(m_smil); });
}

void MainWindow::open(const QStringList &names)
{
    if (names.isEmpty())
        return;
    QSettings settings;
    RecentFiles recent(&settings);
    for (const QString &name : names)
        recent.add(name);
    m_list->setVisible(isList(names));
    if (!isList(names)) {
        m_list->clear(); // what it lists does not replace the message any more
        return read(names.first());
    }
    setWindowTitle(titleOf(names.first()));
    m_list->open(names);
}

void MainWindow::openNewWindow()
{
    auto *window = new MainWindow;
    window->setVisible(true);
}

void MainWindow::openInNewWindow(const QString &file)
{
    auto *window = new MainWindow;
    window->setVisible(true);
    window->open({file});
}

void MainWindow::read(const QString &file)
{
    m_isReading = true;
    m_reader.read(file);
}

void MainWindow::showResult(const ReadMessage &result)
{
    m_isReading = false;
    m_shown = result;
    if (!result.fileName.isEmpty())
        OpenedFiles::add(result.fileName);
    if (!result.fileName.isEmpty() && !result.message) {
        QSettings settings;
        RecentFiles(&settings).remove(result.fileName);
    }
    if (!result.fileName.isEmpty())
        setWindowTitle(titleOf(result.fileName));
    showMessage();
    enableActions();
}

void MainWindow::showMessage()
{
    const std::shared_ptr<Message> &message = m_shown.message;
    const bool hasSlides = message && message->slides().getTotalSlidesNum() > 0;
    m_stage->setMessage(hasSlides ? message : nullptr, m_shown.timing);
    m_center->setCurrentIndex(hasSlides ? 1 : 0);
    if (hasSlides && !m_list->isVisible())
        m_stage->setFocus();
    if (m_shown.fileName.isEmpty())
        m_summary->setWelcome();
    else if (!message)
        m_summary->setError(m_shown.error);
    else if (!hasSlides)
        m_summary->setMessage(*message, m_shown.header);
    m_state->setVisible(message != nullptr);
    if (message)
        m_state->setMessage(*message, m_shown.findings);
    m_header->setLines(m_shown.header);
    m_parts->setMessage(message);
    if (message)
        m_problems->setFindings(m_shown.findings);
    else
        m_problems->clear();
    m_smil->setMessage(message.get());
    m_octets->setMessage(message.get(), m_shown.findings);
}

void MainWindow::showProblems()
{
    showPanel(dockOf(m_problems));
}

void MainWindow::showPlace(const QWidget *panel)
{
    QDockWidget *dock = dockOf(panel);
    dock->setVisible(true);
    dock->raise();
}

QDockWidget *MainWindow::dockOf(const QWidget *panel) const
{
    return *std::ranges::find(m_docks, panel, &QDockWidget::widget);
}

void MainWindow::showPanel(QDockWidget *dock)
{
    dock->setVisible(true);
    dock->raise();
    dock->widget()->setFocus();
}

// A panel in a tab that another one covers comes to the front.
void MainWindow::togglePanel(QDockWidget *dock)
{
    if (m_inFront.contains(dock))
        dock->hide();
    else
        showPanel(dock);
}

bool MainWindow::isBusy() const
{
    return m_isReading || m_stage->isBusy() || m_list->isBusy();
}

QString MainWindow::titleOf(const QString &fileName)
{
    return visible(QFileInfo(fileName).fileName());
}

void MainWindow::report(const QString &line)
{
    constexpr int Milliseconds = 10'000;
    statusBar()->showMessage(line, Milliseconds);
}

void MainWindow::restoreLayout()
{
    const QSettings settings;
    if (!restoreGeometry(settings.value(Geometry).toByteArray()))
        resize(UsualSize.boundedTo(screen()->availableSize()));
    if (width() < NarrowWidth) { // a phone
        for (QDockWidget *dock : std::as_const(m_docks))
            dock->hide();
    }
    resizeDocks({m_docks.first()}, {UsualPanels}, Qt::Horizontal);
    restoreState(settings.value(State).toByteArray());
    m_list->setColumns(settings.value(Columns).toByteArray());
    if (!m_splitter->restoreState(settings.value(Splitter).toByteArray()))
        m_splitter->setSizes({UsualList, UsualSize.width() - UsualList});
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    QSettings settings;
    settings.setValue(Geometry, saveGeometry());
    settings.setValue(State, saveState());
    settings.setValue(Columns, m_list->columns());
    if (m_list->isVisible())
        settings.setValue(Splitter, m_splitter->saveState());
    event->accept();
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    m_splitter->setOrientation(width() < NarrowWidth ? Qt::Vertical : Qt::Horizontal);
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    acceptFiles(event);
}

void MainWindow::dropEvent(QDropEvent *event)
{
    acceptFiles(event);
    if (event->isAccepted())
        open(localFiles(*event->mimeData()));
}
