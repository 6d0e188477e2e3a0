#include "input/files.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

// A written file must not replace a device or a folder.
bool isReplaceable(const QFileInfo &info)
{
    return !info.exists() || info.isFile();
}

QString whyNotWritten(const QFileInfo &info, const QString &systemError)
{
    if (!isReplaceable(info))
        return QStringLiteral("it is a folder or a device; name a file, or - for standard output");
    if (!QFileInfo(info.path()).isDir())
        return QLatin1String("there is no folder ") + info.path()
            + QLatin1String("; create it first");
    return systemError;
}

} // namespace

bool readFile(const QString &fileName, QByteArray *octets, QString *error)
{
    QFile file(fileName);
    const bool opened = fileName == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                       : file.open(QIODevice::ReadOnly);
    if (opened)
        *octets = file.readAll();
    if (opened && file.error() == QFileDevice::NoError)
        return true;
    *error = whyNotRead(fileName, file);
    return false;
}

bool writeFile(const QByteArray &octets, const QString &fileName, QString *error)
{
    if (fileName == QLatin1String("-")) {
        QFile out;
        if (out.open(stdout, QIODevice::WriteOnly) && writeAll(&out, octets))
            return true;
        *error = QLatin1String("cannot write to standard output: ") + out.errorString();
        return false;
    }
    const QFileInfo info(fileName);
    QSaveFile out(fileName);
    if (isReplaceable(info) && out.open(QIODevice::WriteOnly) && writeAll(&out, octets)
        && out.commit())
        return true;
    *error = cannotWrite(info.filePath(), whyNotWritten(info, out.errorString()));
    return false;
}

bool writeAll(QFileDevice *file, const QByteArray &octets)
{
    return file->write(octets) == octets.size() && file->flush();
}

QString whyNotRead(const QString &fileName, const QFileDevice &file)
{
    const QFileInfo info(fileName);
    if (file.fileName().isEmpty())
        return QLatin1String("cannot read standard input: ") + file.errorString();
    const QString cannotRead = QLatin1String("cannot read ") + fileName + QLatin1String(": ");
    if (info.isDir())
        return cannotRead + QLatin1String("it is a folder; name the files in it");
    if (!info.exists())
        return cannotRead + QLatin1String("there is no such file; check its name");
    return cannotRead + file.errorString();
}

QString cannotWrite(const QString &fileName, const QString &why)
{
    return QLatin1String("cannot write ") + fileName + QLatin1String(": ") + why;
}

QString withExtension(const QString &base, const QString &extension)
{
    return extension.isEmpty() ? base : base + QLatin1Char('.') + extension;
}
