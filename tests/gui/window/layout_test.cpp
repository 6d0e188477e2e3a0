/*
 * The layout of the main window: its panels, and screens of a phone.
 */
#include "user_folders.h"

#include "list/message_list_model.h"
#include "list/message_list_view.h"
#include "octets/problems_panel.h"
#include "window/main_window.h"

#include <QAction>
#include <QDockWidget>
#include <QHeaderView>
#include <QListWidget>
#include <QPointer>
#include <QTableView>
#include <QTest>

class LayoutTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { useFoldersOfTheTest(); }

private slots:
    void init();
    void cleanup() { delete m_window; }

    void layoutIsRestored();
    void keyOfAPanelBringsItToTheFront();
    void problemShowsItsOctetsBesideIt();
    void narrowWindowFitsAPhone();

private:
    void open(const QString &name);
    QDockWidget *dock(const QString &name) const
    {
        return m_window->findChild<QDockWidget *>(name);
    }

    QPointer<MainWindow> m_window;
};

void LayoutTest::init()
{
    m_window = new MainWindow;
    m_window->setVisible(true);
}

/// Opens a file or folder of the fixtures.
void LayoutTest::open(const QString &name)
{
    m_window->open({QStringLiteral(QVL_FIXTURES "/") + name});
    QTRY_VERIFY(!m_window->isBusy());
}

void LayoutTest::layoutIsRestored()
{
    dock(QStringLiteral("octets"))->setVisible(false);
    m_window->resize(900, 600);
    auto *columns = m_window->findChild<MessageListView *>()->findChild<QTableView *>();
    columns->setColumnWidth(MessageListModel::Subject, 321);
    columns->sortByColumn(MessageListModel::Date, Qt::DescendingOrder);
    m_window->close();
    QTRY_VERIFY(!m_window);
    init();
    QVERIFY(dock(QStringLiteral("octets"))->isHidden());
    QCOMPARE(m_window->size(), QSize(900, 600));
    const auto *table = m_window->findChild<MessageListView *>()->findChild<QTableView *>();
    QCOMPARE(table->columnWidth(MessageListModel::Subject), 321);
    QCOMPARE(table->horizontalHeader()->sortIndicatorSection(), int(MessageListModel::Date));
    QCOMPARE(table->horizontalHeader()->sortIndicatorOrder(), Qt::DescendingOrder);
    dock(QStringLiteral("octets"))->setVisible(true);
    m_window->close();
}

void LayoutTest::keyOfAPanelBringsItToTheFront()
{
    dock(QStringLiteral("details"))->raise();
    QCoreApplication::processEvents();
    const auto isInFront = [this] {
        const QDockWidget *problems = dock(QStringLiteral("problems"));
        return problems->isVisible() && m_window->rect().contains(problems->geometry().center());
    };
    const auto pressKey = [this] {
        for (QAction *action : m_window->findChildren<QAction *>()) {
            if (action->shortcut() == QKeySequence(Qt::ALT | Qt::Key_3))
                action->trigger();
        }
    };
    QVERIFY(!isInFront());
    pressKey();
    QTRY_VERIFY(isInFront());
    pressKey();
    QVERIFY(dock(QStringLiteral("problems"))->isHidden());
    pressKey();
    QTRY_VERIFY(isInFront());
}

void LayoutTest::problemShowsItsOctetsBesideIt()
{
    open(QStringLiteral("show/truncated-body.mms"));
    dock(QStringLiteral("octets"))->hide();
    auto *problems = m_window->findChild<ProblemsPanel *>()->findChild<QListWidget *>();
    problems->setCurrentRow(0);
    emit problems->itemActivated(problems->item(0));
    QVERIFY(dock(QStringLiteral("octets"))->isVisible());
    QVERIFY(dock(QStringLiteral("problems"))->isVisible());
    dock(QStringLiteral("octets"))->hide();
}

void LayoutTest::narrowWindowFitsAPhone()
{
    open(QStringLiteral("messages"));
    for (const char *name : {"details", "parts", "problems", "smil", "octets"})
        dock(QString::fromLatin1(name))->hide();
    m_window->resize(600, 640); // the list moves above the message
    m_window->resize(360, 640);
    QTRY_COMPARE(m_window->size(), QSize(360, 640));
}

QTEST_MAIN(LayoutTest)
#include "layout_test.moc"
