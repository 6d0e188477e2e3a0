#include "convert/child_command.h"

#include "convert/child.h"

#include <QCoreApplication>
#include <QDir>

QString ChildCommand::runningProgram()
{
    return QCoreApplication::applicationFilePath();
}

// The module is beside the program in a build, and in the folder for libraries once installed.
QString ChildCommand::usualModuleFolder()
{
    const QDir program(QCoreApplication::applicationDirPath());
    return program.exists(QStringLiteral("decoder.so"))
        ? program.path()
        : program.filePath(QStringLiteral(QVLMMS_MODULE_FOLDER));
}

QStringList ChildCommand::arguments(const QString &what, const QString &extension) const
{
    return {QString::fromLatin1(ConvertChild::Argument), what, extension.toLower(), moduleFolder};
}
