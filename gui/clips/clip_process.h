/*
 * The child process that decodes one clip, and the pipe into which it writes. The pipe is read only
 * while somebody wants records; meanwhile the child waits.
 */
#pragma once

#include "clips/clip_record.h"
#include "convert/child_command.h"

#include <QObject>
#include <QProcess>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <memory>

class ClipProcess : public QObject
{
    Q_OBJECT

public:
    enum class End {
        Whole, ///< the last record was read
        NotDecoded, ///< the clip has nothing that can be decoded
        NotStarted, ///< the program or its module is missing
        Malformed, ///< the process wrote something else than records
        Stuck, ///< it did nothing for too long
        Crashed, ///< it was killed, or reached a limit
    };
    Q_ENUM(End)

    /// A process that writes no record within @p patience although one is wanted is stuck.
    explicit ClipProcess(std::chrono::milliseconds patience);

    /// Kills the process. It is gone afterwards.
    ~ClipProcess() override;

    /// Starts to decode from @p fromMs on. Records are wanted. Call it once.
    void start(const ChildCommand &command, const QByteArray &clip, const QString &extension,
               qint64 fromMs);

    void setReading(bool isReading);

signals:
    void recordRead(const ClipRecord &record);
    /// No record comes after it.
    void ended(ClipProcess::End end);

private:
    struct Descriptor
    {
        int number = -1;
        ~Descriptor() { reset(); }
        void reset();
    };

    bool openPipe(Descriptor *writer);
    void readRecords();
    bool readOnce();
    void endIfDone();
    void end(End end);

    QProcess m_process;
    Descriptor m_pipe;
    std::unique_ptr<QSocketNotifier> m_notifier;
    RecordReader m_reader;
    QTimer m_patience;
    bool m_isReading = true;
    bool m_isAtEnd = false; ///< of the pipe
    bool m_hasEnded = false;
};
