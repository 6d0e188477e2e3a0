/*
 * How the child process is started: it is the program that runs.
 */
#pragma once

#include <QString>
#include <QStringList>

struct ChildCommand
{
    QString program = runningProgram();
    QString moduleFolder = usualModuleFolder(); ///< has decoder.so

    /// The arguments for a child that converts or streams (ConvertChild::run) a clip.
    QStringList arguments(const QString &what, const QString &extension) const;

    static QString runningProgram();
    static QString usualModuleFolder();
};
