/*
 * Measures the window: bench/window runs this program.
 *     qvlwindow BEGIN FOLDER
 * BEGIN is when the program was started, in nanoseconds of the monotonic clock. Prints in
 * milliseconds: from there to the first painted frame, from opening the folder until all messages
 * are listed with sender, date and size and sorted by the date, and the longest time for which the
 * event loop did not answer, until the list is complete.
 */
#include "list/message_list_view.h"
#include "window/main_window.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QHeaderView>
#include <QTableView>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock; // the monotonic clock
using Milliseconds = std::chrono::duration<double, std::milli>;

double since(Clock::time_point begin)
{
    return Milliseconds(Clock::now() - begin).count();
}

/// Asks the event loop for an answer again and again.
class PauseMeter : public QObject
{
public:
    PauseMeter() : m_thread([this] { ask(); }) { }
    ~PauseMeter() override { stop(); }

    double stop()
    {
        m_isDone = true;
        if (m_thread.joinable())
            m_thread.join();
        return m_longest;
    }

private:
    void ask()
    {
        while (!m_isDone) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            if (m_isAsked.exchange(true))
                continue;
            const Clock::time_point asked = Clock::now();
            QMetaObject::invokeMethod(
                this,
                [this, asked] {
                    m_longest = std::max(m_longest, since(asked));
                    m_isAsked = false;
                },
                Qt::QueuedConnection);
        }
    }

    std::atomic<bool> m_isDone = false;
    std::atomic<bool> m_isAsked = false;
    double m_longest = 0; // of the event loop's thread
    std::thread m_thread; // last, because it uses the rest
};

class Measurement : public QObject
{
public:
    Measurement(Clock::time_point begin, const QString &folder) : m_begin(begin), m_folder(folder)
    {
        m_window.setAttribute(Qt::WA_DeleteOnClose, false);
        qApp->installEventFilter(this);
        m_window.setVisible(true);
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && object == &m_window && m_frame == 0)
            QTimer::singleShot(0, this, &Measurement::openFolder);
        return false;
    }

private:
    void openFolder()
    {
        if (m_frame > 0)
            return;
        m_frame = since(m_begin);
        m_meter = std::make_unique<PauseMeter>();
        m_opened = Clock::now();
        m_window.open({m_folder});
        connect(&m_timer, &QTimer::timeout, this, &Measurement::look);
        m_timer.start(1);
    }

    void look()
    {
        auto *list = m_window.findChild<MessageListView *>();
        if (m_listed == 0 && list->isListed()) {
            list->findChild<QTableView *>()->sortByColumn(DateColumn, Qt::DescendingOrder);
            m_listed = since(m_opened);
        }
        if (m_listed == 0 || list->isBusy())
            return;
        m_timer.stop();
        const double pause = m_meter->stop();
        std::printf("%.1f %.1f %.1f\n", m_frame, m_listed, pause);
        QCoreApplication::quit();
    }

    static constexpr int DateColumn = 3;

    Clock::time_point m_begin;
    QString m_folder;
    Clock::time_point m_opened;
    double m_frame = 0;
    double m_listed = 0;
    MainWindow m_window;
    QTimer m_timer;
    std::unique_ptr<PauseMeter> m_meter;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 3)
        return 2;
    const Clock::time_point begin{std::chrono::nanoseconds(std::atoll(argv[1]))};
    const Measurement measurement(begin, QString::fromLocal8Bit(argv[2]));
    return QApplication::exec();
}
