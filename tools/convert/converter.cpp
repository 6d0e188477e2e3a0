#include "convert/converter.h"

#include "convert/child.h"
#include "convert/child_command.h"
#include "convert/limits.h"
#include "convert/wav.h"

#include <QDeadlineTimer>
#include <QProcess>

#include <cstring>
#include <utility>

namespace {

constexpr int Milliseconds = 1000;

// Reads what the child writes. False if it does not end, or writes too much.
bool takeResult(QProcess *child, QByteArray *result)
{
    const QDeadlineTimer timer(ConvertLimits::WaitingSeconds * Milliseconds);
    while (child->waitForReadyRead(int(timer.remainingTime()))) {
        *result += child->readAllStandardOutput();
        if (result->size() > ConvertLimits::ResultOctets)
            return false;
    }
    const bool isDone = child->state() == QProcess::NotRunning
        || child->waitForFinished(int(timer.remainingTime()));
    *result += child->readAllStandardOutput();
    return isDone;
}

// What the child process writes; empty when it fails. The process is gone afterwards.
QByteArray converted(const QString &what, const QByteArray &clip, const QString &extension)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::SeparateChannels);
    child.setStandardErrorFile(QProcess::nullDevice());
    const ChildCommand command;
    child.start(command.program, command.arguments(what, extension));
    if (!child.waitForStarted())
        return {};
    child.write(clip);
    child.closeWriteChannel();
    QByteArray result;
    if (!takeResult(&child, &result)) {
        child.kill();
        child.waitForFinished();
        return {};
    }
    return child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0 ? result
                                                                               : QByteArray();
}

} // namespace

bool Converter::canConvert(const QString &extension)
{
    return ConvertChild::canConvert(extension.toLower().toStdString());
}

QByteArray Converter::wavOf(const QByteArray &clip, const QString &extension)
{
    QByteArray octets = converted(QStringLiteral("sound"), clip, extension);
    Sound::Form form{};
    if (octets.size() < qsizetype(sizeof form))
        return {};
    std::memcpy(&form, octets.constData(), sizeof form);
    return Sound::wav(form, std::move(octets.remove(0, sizeof form)));
}

Converter::VideoPicture Converter::firstPictureOf(const QByteArray &clip, const QString &extension)
{
    const QByteArray octets = converted(QStringLiteral("picture"), clip, extension);
    const qsizetype end = octets.indexOf('\n');
    return end < 0 ? VideoPicture() : VideoPicture{octets.sliced(end + 1), octets.first(end)};
}
