#include "window/screenshot.h"

#include "window/main_window.h"

#include <QCoreApplication>
#include <QPixmap>

#include <cstdio>

namespace {

constexpr std::chrono::milliseconds Interval{50};
constexpr int MostWaits = 400; // 20 s
constexpr int IdleWaits = 3; // for what begins a turn of the event loop later

} // namespace

Screenshot::Screenshot(MainWindow *window, const QString &fileName, QObject *parent)
    : QObject(parent), m_window(window), m_fileName(fileName)
{
    connect(&m_timer, &QTimer::timeout, this, &Screenshot::takeWhenReady);
    m_timer.start(Interval);
}

void Screenshot::takeWhenReady()
{
    ++m_waits;
    if (m_waits < IdleWaits || (m_window->isBusy() && m_waits < MostWaits))
        return;
    m_timer.stop();
    const bool isSaved = m_window->grab().save(m_fileName, "PNG");
    if (!isSaved)
        std::fprintf(stderr, "qvlmms-gui: cannot write %s\n", qUtf8Printable(m_fileName));
    QCoreApplication::exit(isSaved ? 0 : 2);
}
