// The menus of the main window, and what their actions do.
#include "window/main_window.h"

#include "common/plain_box.h"
#include "edit/beginnings.h"
#include "edit/opened_files.h"
#include "list/message_list_view.h"
#include "stage/stage_panel.h"
#include "view/terminal_text.h"
#include "window/message_source.h"
#include "window/page_export.h"
#include "window/parts_panel.h"
#include "window/printing.h"
#include "window/recent_files.h"
#include "window/settings_dialog.h"
#include "window/shortcuts_dialog.h"
#include "writing/compose_window.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QSettings>
#include <QtConcurrentRun>

using TerminalText::visible;

namespace {

constexpr Qt::KeyboardModifiers CtrlShift = Qt::ControlModifier | Qt::ShiftModifier;

QKeySequence keys(Qt::KeyboardModifiers modifiers, Qt::Key key)
{
    return QKeySequence(QKeyCombination(modifiers, key));
}

} // namespace

QAction *MainWindow::addCommand(QMenu *menu, const QString &text, const QKeySequence &keys,
                                void (MainWindow::*run)())
{
    QAction *action = menu->addAction(text, this, run);
    action->setShortcut(keys);
    return action;
}

void MainWindow::makeFileMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&File"));
    addCommand(menu, tr("New &Window"), keys(CtrlShift, Qt::Key_N), &MainWindow::openNewWindow);
    addCommand(menu, tr("&Open Messages…"), QKeySequence::Open, &MainWindow::chooseFiles);
    addCommand(menu, tr("Open &Folder…"), keys(CtrlShift, Qt::Key_O), &MainWindow::chooseFolder);
    m_recent = menu->addMenu(tr("Open &Recent"));
    connect(m_recent, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    menu->addSeparator();
    menu->addActions(m_parts->commands());
    menu->addSeparator();
    m_forMessage += addCommand(menu, tr("&Export as Page…"), keys(Qt::ControlModifier, Qt::Key_E),
                               &MainWindow::exportAsPage);
    m_forContent += addCommand(menu, tr("&Print…"), QKeySequence::Print, &MainWindow::print);
    menu->addSeparator();
    menu->addAction(tr("Se&ttings…"), this, [this] { SettingsDialog(this).exec(); });
    menu->addSeparator();
    menu->addAction(tr("&Close"), this, &QWidget::close)->setShortcut(QKeySequence::Close);
    menu->addAction(tr("&Quit"), qApp, &QApplication::closeAllWindows)
        ->setShortcut(keys(Qt::ControlModifier, Qt::Key_Q));
}

void MainWindow::makeMessageMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Message"));
    addCommand(menu, tr("&New Message"), QKeySequence::New, &MainWindow::writeNew);
    m_forReply +=
        addCommand(menu, tr("&Reply"), keys(Qt::ControlModifier, Qt::Key_R), &MainWindow::reply);
    m_forReply +=
        addCommand(menu, tr("Reply to &All"), keys(CtrlShift, Qt::Key_R), &MainWindow::replyToAll);
    m_forContent += addCommand(menu, tr("&Forward"), keys(Qt::ControlModifier, Qt::Key_L),
                               &MainWindow::forward);
    m_forContent +=
        addCommand(menu, tr("&Edit as New"), keys(CtrlShift, Qt::Key_E), &MainWindow::editAsNew);
}

void MainWindow::makeViewMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&View"));
    menu->addActions(m_stage->commands());
    menu->addSeparator();
    menu->addMenu(tr("Sort Messages &By"))->addActions(m_list->sortCommands());
    menu->addSeparator();
    int number = 1;
    for (QDockWidget *dock : m_docks)
        menu->addAction(dock->windowTitle(), this, [this, dock] { togglePanel(dock); })
            ->setShortcut(keys(Qt::AltModifier, Qt::Key(Qt::Key_0 + number++)));
}

void MainWindow::makeHelpMenu()
{
    QMenu *menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("&Keyboard Shortcuts"), this, [this] { ShortcutsDialog(this).exec(); })
        ->setShortcut(QKeySequence::HelpContents);
    menu->addAction(tr("&About"), this, [this] {
        QMessageBox::about(this, tr("About"),
                           tr("Multimedia Messages %1\n\nLooks at multimedia messages (MMS) and "
                              "writes them.")
                               .arg(QApplication::applicationVersion()));
    });
}

void MainWindow::enableActions()
{
    const Message *message = m_shown.message.get();
    for (QAction *action : m_forMessage)
        action->setEnabled(message);
    for (QAction *action : m_forReply)
        action->setEnabled(message && Beginnings::canReplyTo(*message));
    for (QAction *action : m_forContent)
        action->setEnabled(message && Beginnings::canForward(*message));
}

void MainWindow::fillRecentMenu()
{
    QSettings settings;
    m_recent->clear();
    for (const QString &name : RecentFiles(&settings).names())
        m_recent->addAction(visible(name).replace(QLatin1Char('&'), QLatin1StringView("&&")), this,
                            [this, name] { open({name}); });
    m_recent->addSeparator();
    m_recent->addAction(tr("&Clear"), this, [] {
        QSettings all;
        RecentFiles(&all).clear();
    });
}

void MainWindow::chooseFiles()
{
    open(QFileDialog::getOpenFileNames(this, tr("Open Messages"), {},
                                       tr("Multimedia messages (*.mms);;All files (*)")));
}

void MainWindow::chooseFolder()
{
    const QString name = QFileDialog::getExistingDirectory(this, tr("Open Folder"));
    if (!name.isEmpty())
        open({name});
}

void MainWindow::writeNew()
{
    write(Beginnings::newMessage());
}

void MainWindow::reply()
{
    write(Beginnings::replyTo(*m_shown.message));
}

void MainWindow::replyToAll()
{
    write(Beginnings::replyToAll(*m_shown.message, SettingsDialog::ownAddress()));
}

void MainWindow::forward()
{
    write(Beginnings::forward(*m_shown.message));
}

void MainWindow::editAsNew()
{
    write(Beginnings::editAsNew(*m_shown.message));
}

void MainWindow::write(std::unique_ptr<Editor> editor)
{
    ComposeWindow *window = ComposeWindow::open(std::move(editor));
    connect(window, &ComposeWindow::saved, this,
            [this](const QString &name) { report(tr("Saved %1").arg(visible(name))); });
}

template <typename Result>
void MainWindow::runInThread(std::function<Result()> work,
                             std::function<void(const Result &)> finish)
{
    auto *watcher = new QFutureWatcher<Result>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [watcher, finish] {
        watcher->deleteLater();
        finish(watcher->result());
    });
    watcher->setFuture(QtConcurrent::run(work));
}

MessageSource MainWindow::source() const
{
    return {m_shown.message->octets, m_shown.fileName, m_shown.findings};
}

void MainWindow::print()
{
    const MessageSource printed = source(); // the dialog may outlast the message
    auto printer = std::make_shared<QPrinter>();
    if (QPrintDialog(printer.get(), this).exec() != QDialog::Accepted)
        return;
    report(tr("Printing %1").arg(titleOf(printed.fileName)));
    runInThread<bool>([printed, printer] { return printSlides(printed, printer.get()); },
                      [this, printed](bool isPrinted) {
                          if (!isPrinted)
                              return warn(this, tr("Print"), tr("The printer cannot be used."));
                          report(tr("Printed %1").arg(titleOf(printed.fileName)));
                      });
}

void MainWindow::exportAsPage()
{
    const MessageSource exported = source(); // the dialog may outlast the message
    QFileDialog dialog(this, tr("Export as Page"), {}, tr("Pages (*.html)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("html"));
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString name = dialog.selectedFiles().value(0);
    if (const QString refusal = OpenedFiles::refusal(name); !refusal.isEmpty())
        return warn(this, tr("Export as Page"), refusal);
    report(tr("Writing %1").arg(visible(name)));
    runInThread<ExportedPage>([exported, name] { return exportPage(exported, name); },
                              [this, name](const ExportedPage &page) { reportPage(page, name); });
}

void MainWindow::reportPage(const ExportedPage &page, const QString &name)
{
    if (!page.error.isEmpty())
        return warn(this, tr("Export as Page"), page.error);
    report(page.isComplete ? tr("Saved %1").arg(visible(name))
                           : tr("Saved %1. The page says which media it lacks").arg(visible(name)));
}
