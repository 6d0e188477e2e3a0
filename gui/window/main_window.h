/*
 * A window that shows a message, or a folder of messages beside the chosen one.
 */
#pragma once

#include "window/message_reader.h"

#include <QMainWindow>
#include <QSet>
#include <QStringList>

#include <memory>

struct ExportedPage;
struct MessageSource;
class Editor;
class HeaderPanel;
class MessageListView;
class OctetsPanel;
class PartsPanel;
class ProblemsPanel;
class QDockWidget;
class QMenu;
class QSplitter;
class QStackedWidget;
class SmilPanel;
class StagePanel;
class StateBar;
class SummaryPanel;

class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// An empty window. It deletes itself when it is closed.
    MainWindow();
    ~MainWindow() override;

    /// Opens @p names: one file alone, or files and folders as a list. Nothing for an empty list.
    void open(const QStringList &names);

    /// What is shown; without a message before one was read.
    const ReadMessage &shown() const { return m_shown; }
    /// Whether messages or pictures are still being read.
    bool isBusy() const;

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void makeCenter();
    void makePanels();
    QDockWidget *addPanel(const QString &title, const char *name, QWidget *panel);
    void connectPanels();

    void makeFileMenu();
    void makeMessageMenu();
    void makeViewMenu();
    void makeHelpMenu();
    QAction *addCommand(QMenu *menu, const QString &text, const QKeySequence &keys,
                        void (MainWindow::*run)());
    void enableActions();
    void fillRecentMenu();

    void chooseFiles();
    void chooseFolder();
    void openNewWindow();
    void openInNewWindow(const QString &file);

    void read(const QString &file);
    void showResult(const ReadMessage &result);
    void showMessage();
    void showProblems();
    void showPlace(const QWidget *panel);
    QDockWidget *dockOf(const QWidget *panel) const;
    void showPanel(QDockWidget *dock);
    void togglePanel(QDockWidget *dock);

    void writeNew();
    void reply();
    void replyToAll();
    void forward();
    void editAsNew();
    void write(std::unique_ptr<Editor> editor);

    void print();
    void exportAsPage();
    void reportPage(const ExportedPage &page, const QString &name);
    static QString titleOf(const QString &fileName);
    MessageSource source() const;
    /// Runs @p work in a thread, and then @p finish with its result, unless the window is gone.
    template <typename Result>
    void runInThread(std::function<Result()> work, std::function<void(const Result &)> finish);
    void report(const QString &line);
    void restoreLayout();

    MessageReader m_reader;
    ReadMessage m_shown;
    bool m_isReading = false;
    QSplitter *m_splitter;
    MessageListView *m_list;
    StateBar *m_state;
    QStackedWidget *m_center;
    StagePanel *m_stage;
    SummaryPanel *m_summary;
    HeaderPanel *m_header;
    PartsPanel *m_parts;
    ProblemsPanel *m_problems;
    SmilPanel *m_smil;
    OctetsPanel *m_octets;
    QList<QDockWidget *> m_docks;
    QSet<QDockWidget *> m_inFront; ///< those that no other tab covers
    QMenu *m_recent = nullptr;
    QList<QAction *> m_forMessage; ///< enabled while a message is shown
    QList<QAction *> m_forReply; ///< enabled while its sender can be answered
    QList<QAction *> m_forContent; ///< enabled while it has content
};
