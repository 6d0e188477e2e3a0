#include "clips/clip_player.h"

#include "convert/converter.h"
#include "convert/limits.h"
#include "view/terminal_text.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

constexpr int TickMs = 10;
constexpr int LeadMs = 200; // how early sound is given to the device
constexpr int LateMs = 200; // sound that is later is left out
constexpr int SamePlaceMs = 50;
constexpr qsizetype QueueOctets = qsizetype(8) << 20;
constexpr qsizetype RecordCost = 256; // of memory, besides its octets

qsizetype costOf(const ClipRecord &record)
{
    return record.octets.size() + RecordCost;
}

// Keeps the octets; copies none.
QImage imageOf(const ClipRecord &picture)
{
    const ClipStream::Header &header = picture.header;
    auto *kept = new QByteArray(picture.octets);
    return QImage(
        reinterpret_cast<const uchar *>(kept->constData()), header.width, header.height,
        header.width * 3, QImage::Format_RGB888,
        [](void *array) { delete static_cast<QByteArray *>(array); }, kept);
}

} // namespace

std::chrono::milliseconds ClipSetup::usualPatience()
{
    return std::chrono::seconds(ConvertLimits::StreamWaitingSeconds);
}

qint64 ClipSetup::monotonicMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

bool ClipPlayer::canPlay(const QString &extension)
{
    return Converter::canConvert(extension);
}

ClipPlayer::ClipPlayer(QByteArray octets, QString extension, ClipSetup setup, QObject *parent)
    : QObject(parent), m_clip(std::move(octets)), m_extension(std::move(extension)),
      m_setup(std::move(setup))
{
    m_tick.setInterval(TickMs);
    m_tick.setTimerType(Qt::PreciseTimer);
    connect(&m_tick, &QTimer::timeout, this, &ClipPlayer::advance);
}

ClipPlayer::~ClipPlayer() = default;

qint64 ClipPlayer::position() const
{
    return m_isPlaying && m_hasBegun ? m_position + m_setup.now() - m_setAt : m_position;
}

void ClipPlayer::start(qint64 atMs)
{
    if (m_isDone || std::abs(atMs - position()) > SamePlaceMs)
        restart(atMs);
    if (std::exchange(m_isPlaying, true))
        return;
    runClock();
    if (m_output)
        m_output->setPlaying(true);
}

void ClipPlayer::pause()
{
    m_position = position();
    m_isPlaying = false;
    m_tick.stop();
    if (m_output)
        m_output->setPlaying(false);
}

void ClipPlayer::showAt(qint64 atMs)
{
    restart(atMs);
}

void ClipPlayer::restart(qint64 atMs)
{
    clear();
    m_position = std::max<qint64>(atMs, 0);
    m_isDone = false;
    m_process = std::make_unique<ClipProcess>(m_setup.patience);
    connect(m_process.get(), &ClipProcess::recordRead, this, &ClipPlayer::take);
    connect(m_process.get(), &ClipProcess::ended, this, &ClipPlayer::takeEnd);
    m_process->start(m_setup.command, m_clip, m_extension, m_position);
}

// The process may be what calls.
void ClipPlayer::abandonProcess()
{
    if (!m_process)
        return;
    m_process->disconnect(this);
    m_process->setReading(false);
    m_process->setParent(this);
    m_process.release()->deleteLater();
}

void ClipPlayer::clear()
{
    abandonProcess();
    m_output.reset();
    m_hasOpenedSound = false;
    m_pictures.clear();
    m_sounds.clear();
    m_queuedOctets = 0;
    m_missing.clear();
    m_endMs = -1;
    m_tick.stop();
    m_isPlaying = false;
    m_hasBegun = false;
    m_isDone = true;
}

void ClipPlayer::runClock()
{
    m_setAt = m_setup.now();
    if (m_hasBegun)
        m_tick.start();
}

void ClipPlayer::take(const ClipRecord &record)
{
    using ClipStream::Kind;
    switch (record.header.kind) {
    case Kind::Sound:
        queue(record, &m_sounds);
        break;
    case Kind::Picture:
        queue(record, &m_pictures);
        break;
    case Kind::NoSoundDecoder:
    case Kind::NoPictureDecoder:
        return takeMissing(record);
    case Kind::End:
        m_endMs = record.header.ms;
        break;
    }
    const bool isFirst = !std::exchange(m_hasBegun, true);
    if (isFirst && m_isPlaying)
        runClock();
    const QPointer<ClipPlayer> self(this);
    if (!m_isPlaying)
        emitPicture();
    if (self && isFirst && !m_missing.isEmpty())
        emit incomplete(m_missing);
}

void ClipPlayer::queue(const ClipRecord &record, std::deque<ClipRecord> *queue)
{
    queue->push_back(record);
    m_queuedOctets += costOf(record);
    readIfRoom();
}

void ClipPlayer::takeMissing(const ClipRecord &record)
{
    const QString codec = TerminalText::visible(QString::fromLatin1(record.octets));
    m_missing = record.header.kind == ClipStream::Kind::NoSoundDecoder
        ? tr("The sound cannot be decoded. Its codec is %1.").arg(codec)
        : tr("The pictures cannot be decoded. Their codec is %1.").arg(codec);
    if (m_hasBegun)
        emit incomplete(m_missing);
}

void ClipPlayer::takeEnd(ClipProcess::End end)
{
    abandonProcess();
    if (end == ClipProcess::End::Whole)
        return;
    const QString why = reasonOf(end);
    clear();
    emit failed(why);
}

QString ClipPlayer::reasonOf(ClipProcess::End end) const
{
    switch (end) {
    case ClipProcess::End::NotDecoded:
        return m_missing.isEmpty() ? tr("The clip cannot be decoded.") : m_missing;
    case ClipProcess::End::NotStarted:
        return canPlay(m_extension)
            ? tr("The decoder for clips is not installed.")
            : tr("There is no decoder for clips of the type \"%1\".").arg(m_extension);
    case ClipProcess::End::Stuck:
        return tr("The decoder was stopped, because it took too long.");
    case ClipProcess::End::Malformed:
    case ClipProcess::End::Crashed:
    case ClipProcess::End::Whole:
        break;
    }
    return tr("The decoder was stopped by this clip. The clip may be damaged.");
}

// A slot may delete the player, so each signal comes last.
void ClipPlayer::advance()
{
    writeSound();
    if (emitPicture() || m_endMs < 0 || position() < m_endMs || !m_pictures.empty()
        || !m_sounds.empty())
        return;
    m_position = m_endMs;
    m_isPlaying = false;
    m_isDone = true;
    m_tick.stop();
    emit ended();
}

void ClipPlayer::writeSound()
{
    while (!m_sounds.empty() && m_sounds.front().header.ms <= position() + LeadMs) {
        if (!writeFirstSound())
            return;
        drop(&m_sounds);
    }
}

// Sound that is late, or has no device, is left out. False when the device cannot take all of it
// now.
bool ClipPlayer::writeFirstSound()
{
    ClipRecord &sound = m_sounds.front();
    openSound(sound.header);
    if (!m_output || sound.header.ms < position() - LateMs)
        return true;
    const qsizetype unit = qsizetype(sound.header.channels) * ClipRecord::SampleOctets;
    const qsizetype room = m_output->freeOctets() / unit * unit;
    const qsizetype written = std::min(room, sound.octets.size());
    m_output->write(QByteArrayView(sound.octets).first(written));
    m_queuedOctets -= written;
    sound.octets.remove(0, written);
    return sound.octets.isEmpty();
}

void ClipPlayer::openSound(const ClipStream::Header &header)
{
    if (!std::exchange(m_hasOpenedSound, true))
        m_output = m_setup.openSound({header.rate, header.channels});
}

// Emits the last one of the pictures that are due. False when there is none.
bool ClipPlayer::emitPicture()
{
    const auto isDue = [this](const ClipRecord &picture) {
        return picture.header.ms <= position();
    };
    ClipRecord last;
    while (!m_pictures.empty() && isDue(m_pictures.front())) {
        last = m_pictures.front();
        drop(&m_pictures);
    }
    if (last.octets.isEmpty())
        return false;
    emit frame(imageOf(last), last.header.ms);
    return true;
}

void ClipPlayer::drop(std::deque<ClipRecord> *queue)
{
    m_queuedOctets -= costOf(queue->front());
    queue->pop_front();
    readIfRoom();
}

void ClipPlayer::readIfRoom()
{
    if (m_process)
        m_process->setReading(m_queuedOctets < QueueOctets);
}
