#include "window/message_reader.h"

#include "check/check.h"

#include <QtConcurrentRun>

ReadMessage readAndCheck(const QString &fileName)
{
    ReadMessage result{fileName, nullptr, {}, {}};
    result.message = readMessage(fileName, {}, &result.error);
    if (result.message)
        result.findings = Check::checkMessage(*result.message, {});
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
    m_watcher.setFuture(QtConcurrent::run(readAndCheck, fileName));
}

void MessageReader::cancel()
{
    m_watcher.setFuture({});
}
