/*
 * Reads and checks messages outside the window's thread.
 */
#pragma once

#include "check/findings.h"
#include "input/message.h"
#include "octets/header_lines.h"
#include "stage/timing.h"

#include <QFutureWatcher>
#include <QObject>
#include <QString>

#include <memory>
#include <vector>

/// A message that was read and checked.
struct ReadMessage
{
    QString fileName;
    std::shared_ptr<Message> message; ///< null if the file cannot be read
    QList<FieldView> header; ///< as headerLines() returns it
    Check::Findings findings;
    std::vector<SlideTiming> timing; ///< of the slides
    QString error; ///< why the file cannot be read
};

/// Reads the message in the file @p fileName, presents and checks it.
ReadMessage readAndCheck(const QString &fileName);

/// Reads one message after the other. Only the result of the last call is reported.
class MessageReader : public QObject
{
    Q_OBJECT

public:
    explicit MessageReader(QObject *parent = nullptr);

    /// Begins to read @p fileName. The result of an earlier call is dropped.
    void read(const QString &fileName);
    /// Drops the result of the last call.
    void cancel();

signals:
    void done(const ReadMessage &result);

private:
    QFutureWatcher<ReadMessage> m_watcher;
};
