#include "edit/opened_files.h"

#include "input/file_name.h"
#include "input/message_files.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <filesystem>

namespace {

QSet<QString> &names()
{
    static QSet<QString> opened;
    return opened;
}

bool isMessage(const QString &fileName)
{
    return QFileInfo::exists(fileName)
        && beginsLikeMessage(std::filesystem::path(FileName::toOctets(fileName).toStdString()));
}

bool contains(const QString &fileName)
{
    const QFileInfo file(fileName);
    const QString path = file.canonicalFilePath();
    return names().contains(file.absoluteFilePath())
        || (!path.isEmpty() && std::ranges::any_of(names(), [&path](const QString &name) {
               return QFileInfo(name).canonicalFilePath() == path;
           }));
}

struct OpenedFilesTexts
{
    Q_DECLARE_TR_FUNCTIONS(OpenedFiles)
};

} // namespace

void OpenedFiles::add(const QString &fileName)
{
    names().insert(QFileInfo(fileName).absoluteFilePath());
}

QString OpenedFiles::refusal(const QString &fileName)
{
    if (contains(fileName))
        return OpenedFilesTexts::tr("%1 was opened to be read. Choose another name.").arg(fileName);
    return isMessage(fileName)
        ? OpenedFilesTexts::tr("%1 is another message. Choose another name.").arg(fileName)
        : QString();
}
