#include "window/message_reader.h"

#include "check/check.h"

#include <QtConcurrentRun>

#include <new>

ReadMessage readAndCheck(const QString &fileName)
{
    ReadMessage result;
    result.fileName = fileName;
    try {
        result.message = readMessage(fileName, {}, &result.error);
        if (!result.message)
            return result;
        result.header = headerLines(*result.message);
        result.findings = Check::checkMessage(*result.message, {});
        result.timing = timingOf(*result.message);
    } catch (const std::bad_alloc &) {
        result = {};
        result.fileName = fileName;
        result.error = MessageReader::tr("There is not enough memory.");
    }
    return result;
}

MessageReader::MessageReader(QObject *parent) : QObject(parent)
{
    connect(&m_watcher, &QFutureWatcher<ReadMessage>::finished, this, [this] {
        if (!m_watcher.future().isCanceled() && m_watcher.future().resultCount() > 0)
            emit done(m_watcher.result());
    });
}

void MessageReader::read(const QString &fileName)
{
    m_watcher.future().cancel(); // what did not begin is never read
    m_watcher.setFuture(QtConcurrent::run(readAndCheck, fileName));
}

void MessageReader::cancel()
{
    m_watcher.future().cancel();
    m_watcher.setFuture({});
}
