#include "clips/clip_process.h"

#include "convert/child.h"

#include <QPointer>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace {

constexpr int MostReads = 256; // until other events have their turn

} // namespace

void ClipProcess::Descriptor::reset()
{
    if (number >= 0)
        ::close(std::exchange(number, -1));
}

ClipProcess::ClipProcess(std::chrono::milliseconds patience)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, this, [this] { end(End::Stuck); });
    // Queued, because who is told of the end may delete the process.
    connect(&m_process, &QProcess::finished, this, &ClipProcess::endIfDone, Qt::QueuedConnection);
    connect(&m_process, &QProcess::errorOccurred, this, &ClipProcess::endIfDone,
            Qt::QueuedConnection);
}

ClipProcess::~ClipProcess()
{
    m_process.disconnect(this);
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.kill();
    m_process.waitForFinished();
}

// QProcess itself would read everything that the child writes.
bool ClipProcess::openPipe(Descriptor *writer)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    m_pipe.number = ends[0];
    writer->number = ends[1];
    return ::fcntl(m_pipe.number, F_SETFL, O_NONBLOCK) == 0;
}

void ClipProcess::start(const ChildCommand &command, const QByteArray &clip,
                        const QString &extension, qint64 fromMs)
{
    Descriptor writer;
    if (!openPipe(&writer)) {
        QTimer::singleShot(0, this, [this] { end(End::NotStarted); });
        return;
    }
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe.number, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &ClipProcess::readRecords);
    m_process.setStandardOutputFile(QProcess::nullDevice());
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setChildProcessModifier([number = writer.number] { ::dup2(number, STDOUT_FILENO); });
    m_patience.start();
    m_process.start(command.program,
                    command.arguments(QStringLiteral("stream=%1").arg(fromMs), extension));
    m_process.write(clip);
    m_process.closeWriteChannel();
}

void ClipProcess::setReading(bool isReading)
{
    m_isReading = isReading;
    if (m_isAtEnd || !m_notifier)
        return;
    m_notifier->setEnabled(isReading);
    if (!isReading)
        m_patience.stop();
    else if (!m_patience.isActive())
        m_patience.start();
}

void ClipProcess::readRecords()
{
    const QPointer<ClipProcess> self(this);
    for (int i = 0; i < MostReads && m_isReading && readOnce(); ++i) {
        if (m_reader.isMalformed())
            return end(End::Malformed);
        const std::optional<ClipRecord> record = m_reader.take();
        if (!record)
            continue;
        m_patience.start();
        if (record->header.kind == ClipStream::Kind::End)
            m_isAtEnd = true; // nobody waits for more
        emit recordRead(*record);
        if (!self)
            return;
        if (m_isAtEnd)
            return end(End::Whole);
    }
}

// False when nothing was read for now.
bool ClipProcess::readOnce()
{
    const std::span<char> space = m_reader.space();
    const ssize_t count = ::read(m_pipe.number, space.data(), space.size());
    if (count > 0) {
        m_reader.filled(count);
        return true;
    }
    if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
        m_isAtEnd = true;
        m_notifier->setEnabled(false);
        endIfDone();
    }
    return false;
}

// The process may end before the pipe was read, and the pipe before the process.
void ClipProcess::endIfDone()
{
    if (!m_isAtEnd || m_process.state() != QProcess::NotRunning)
        return;
    if (m_process.error() == QProcess::FailedToStart)
        return end(End::NotStarted);
    if (m_process.exitStatus() == QProcess::CrashExit)
        return end(End::Crashed);
    switch (m_process.exitCode()) {
    case ConvertChild::NotDecoded:
        return end(End::NotDecoded);
    case ConvertChild::NotStarted:
        return end(End::NotStarted);
    default:
        return end(End::Malformed);
    }
}

void ClipProcess::end(End end)
{
    if (std::exchange(m_hasEnded, true))
        return;
    m_isReading = false;
    m_isAtEnd = true;
    m_patience.stop();
    if (m_notifier)
        m_notifier->setEnabled(false);
    m_process.disconnect(this);
    m_process.kill();
    emit ended(end);
}
