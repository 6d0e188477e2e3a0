/*
 * Plays an audio or video clip: emits its pictures when they are due and gives its sound to the
 * audio device. A child process decodes the clip with the one demuxer for its extension; the clip
 * opens no file and no address. Memory is bounded: the child waits until its pictures and sound are
 * wanted.
 */
#pragma once

#include "clips/clip_process.h"
#include "clips/sound_output.h"

#include <QImage>

#include <deque>
#include <functional>

/// What a player uses. Tests replace it.
struct ClipSetup
{
    ChildCommand command;
    std::chrono::milliseconds patience = usualPatience(); ///< with a process that does nothing
    std::function<qint64()> now = monotonicMs; ///< milliseconds of a clock that never goes back
    /// Opens the audio device. Null when there is none.
    std::function<std::unique_ptr<SoundOutput>(const Sound::Form &)> openSound = SoundOutput::open;

    static std::chrono::milliseconds usualPatience();
    static qint64 monotonicMs();
};

class ClipPlayer : public QObject
{
    Q_OBJECT

public:
    /// True for file extensions of clips that can be played.
    static bool canPlay(const QString &extension);

    /// Starts no process yet. The octets are shared.
    ClipPlayer(QByteArray octets, QString extension, ClipSetup setup = {},
               QObject *parent = nullptr);
    /// No process is left afterwards.
    ~ClipPlayer() override;

    /// Plays from @p atMs milliseconds on. Continues after pause() if that is where the clip is;
    /// otherwise decoding starts again.
    void start(qint64 atMs);

    /// Stops time, sound and decoding; start() continues.
    void pause();

    /// Emits the picture that is shown at @p atMs, and pauses there.
    void showAt(qint64 atMs);

    /// Milliseconds from the clip's begin. They run from the first decoded picture or sound on.
    qint64 position() const;

    /// What waits until it is due, in octets. Bounded.
    qsizetype queuedOctets() const { return m_queuedOctets; }

signals:
    /// A picture is due: one of @p ms milliseconds from the clip's begin. Pictures that come too
    /// late are left out.
    void frame(const QImage &image, qint64 ms);
    /// The clip was played to its end.
    void ended();
    /// The clip has sound or pictures that cannot be decoded; the rest is played.
    void incomplete(const QString &why);
    /// Nothing more is played. @p why is for people.
    void failed(const QString &why);

private:
    void restart(qint64 atMs);
    void abandonProcess();
    void clear();
    void runClock();
    void take(const ClipRecord &record);
    void queue(const ClipRecord &record, std::deque<ClipRecord> *queue);
    void takeMissing(const ClipRecord &record);
    void takeEnd(ClipProcess::End end);
    void advance();
    void writeSound();
    bool writeFirstSound();
    void openSound(const ClipStream::Header &header);
    bool emitPicture();
    void drop(std::deque<ClipRecord> *queue);
    void readIfRoom();
    QString reasonOf(ClipProcess::End end) const;

    const QByteArray m_clip;
    const QString m_extension;
    const ClipSetup m_setup;
    std::unique_ptr<ClipProcess> m_process;
    std::unique_ptr<SoundOutput> m_output; ///< null without sound or without a device
    bool m_hasOpenedSound = false;
    std::deque<ClipRecord> m_pictures;
    std::deque<ClipRecord> m_sounds;
    qsizetype m_queuedOctets = 0;
    QString m_missing; ///< why something is not decoded
    qint64 m_endMs = -1; ///< of the clip; negative until it is known
    QTimer m_tick{this};
    bool m_isPlaying = false; ///< or will be once something is decoded
    bool m_hasBegun = false; ///< something was decoded
    bool m_isDone = true; ///< has ended or failed, or was never started
    qint64 m_position = 0; ///< when the clock was set
    qint64 m_setAt = 0; ///< when, in milliseconds of the clock
};
