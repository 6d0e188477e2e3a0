#include "edit/opened_files.h"

#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace {

QSet<QString> &names()
{
    static QSet<QString> opened;
    return opened;
}

} // namespace

void OpenedFiles::add(const QString &fileName)
{
    names().insert(QFileInfo(fileName).absoluteFilePath());
}

bool OpenedFiles::contains(const QString &fileName)
{
    const QFileInfo file(fileName);
    const QString path = file.canonicalFilePath();
    return names().contains(file.absoluteFilePath())
        || (!path.isEmpty() && std::ranges::any_of(names(), [&path](const QString &name) {
               return QFileInfo(name).canonicalFilePath() == path;
           }));
}
