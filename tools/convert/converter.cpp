#include "convert/converter.h"

#include "convert/child.h"
#include "convert/limits.h"
#include "convert/wav.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>

#include <cstring>

namespace {

constexpr int Milliseconds = 1000;

// The module is beside the program in a build, and in the folder for libraries once installed.
QString moduleFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    return program.exists(QStringLiteral("decoder.so"))
        ? program.path()
        : program.filePath(QStringLiteral(QVLMMS_MODULE_FOLDER));
}

// What the child process writes; empty when it fails. The process is gone afterwards.
QByteArray converted(const QString &what, const QByteArray &clip, const QString &extension)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::SeparateChannels);
    child.setStandardErrorFile(QProcess::nullDevice());
    child.start(
        QCoreApplication::applicationFilePath(),
        {QString::fromLatin1(ConvertChild::Argument), what, extension.toLower(), moduleFolder()});
    if (!child.waitForStarted())
        return {};
    child.write(clip);
    child.closeWriteChannel();
    const bool isDone = child.waitForFinished(ConvertLimits::WaitingSeconds * Milliseconds);
    if (!isDone) {
        child.kill();
        child.waitForFinished();
        return {};
    }
    return child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0
        ? child.readAllStandardOutput()
        : QByteArray();
}

} // namespace

QByteArray Converter::wavOf(const QByteArray &clip, const QString &extension)
{
    const QByteArray octets = converted(QStringLiteral("sound"), clip, extension);
    Sound::Form form{};
    if (octets.size() < qsizetype(sizeof form))
        return {};
    std::memcpy(&form, octets.constData(), sizeof form);
    return Sound::wav(form, octets.sliced(sizeof form));
}

Converter::VideoPicture Converter::firstPictureOf(const QByteArray &clip, const QString &extension)
{
    const QByteArray octets = converted(QStringLiteral("picture"), clip, extension);
    const qsizetype end = octets.indexOf('\n');
    return end < 0 ? VideoPicture() : VideoPicture{octets.sliced(end + 1), octets.first(end)};
}
