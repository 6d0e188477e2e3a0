#include "window/attachment.h"

#include "extract/extract.h"

#include <qvlsmilparser.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>
#include <QTemporaryDir>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// Kinds of files that some program runs, or that load other files from elsewhere. Whatever inherits
// from one of them is one, too.
constexpr std::array runTypes{
    "application/x-executable"_L1,
    "application/x-sharedlib"_L1,
    "application/x-shellscript"_L1,
    "application/x-desktop"_L1,
    "application/x-ms-dos-executable"_L1,
    "application/x-msdownload"_L1,
    "application/vnd.microsoft.portable-executable"_L1,
    "application/x-msi"_L1,
    "application/x-bat"_L1,
    "application/x-java-archive"_L1,
    "application/java-archive"_L1,
    "application/vnd.appimage"_L1,
    "application/vnd.android.package-archive"_L1,
    "application/vnd.debian.binary-package"_L1,
    "application/x-rpm"_L1,
    "application/javascript"_L1,
    "text/javascript"_L1,
    "application/x-perl"_L1,
    "application/x-ruby"_L1,
    "text/x-python"_L1,
    "application/xhtml+xml"_L1,
    "text/html"_L1,
    "image/svg+xml"_L1,
    "application/x-mswinurl"_L1,
    "application/x-mimearchive"_L1,
};

bool isRun(const QMimeType &type)
{
    return std::ranges::any_of(runTypes,
                               [&type](QLatin1StringView name) { return type.inherits(name); });
}

// Only types with content of their own are opened: an unknown one says nothing about what the other
// program does with it.
bool mayBeOpened(const QMimeType &content, const QMimeType &name)
{
    return content.isValid() && !content.isDefault() && !isRun(content) && !isRun(name);
}

QString withExtensionOf(const QString &name, const QMimeType &content)
{
    const QStringList suffixes = content.suffixes();
    const QFileInfo info(name);
    if (suffixes.isEmpty() || suffixes.contains(info.suffix(), Qt::CaseInsensitive))
        return name;
    return info.completeBaseName() + u'.' + content.preferredSuffix();
}

} // namespace

Attachment examineAttachment(const MMS_COMP_SMILMultipartBodypart &part, int index)
{
    const QMimeDatabase database;
    const QString name = partFileName(part, index);
    const QMimeType byContent = database.mimeTypeForData(part.getBodyData());
    const QMimeType byName = database.mimeTypeForFile(name, QMimeDatabase::MatchExtension);
    return {withExtensionOf(name, byContent), byContent.comment(), byName.comment(),
            mayBeOpened(byContent, byName)};
}

OpenedAttachments::OpenedAttachments() = default;
OpenedAttachments::~OpenedAttachments() = default;

QString OpenedAttachments::write(const QByteArray &octets, const QString &name, QString *error)
{
    if (!m_folder)
        m_folder = std::make_unique<QTemporaryDir>();
    const QDir folder(m_folder->path());
    const QString own =
        QString::number(++m_count); // a folder for each, so that all keep their names
    QFile file(folder.filePath(own + u'/' + name));
    const bool isWritten = m_folder->isValid() && folder.mkdir(own)
        && file.open(QIODevice::WriteOnly | QIODevice::NewOnly,
                     QFileDevice::ReadOwner | QFileDevice::WriteOwner)
        && file.write(octets) == octets.size() && file.flush();
    if (isWritten)
        return file.fileName();
    *error = m_folder->isValid() ? file.errorString() : m_folder->errorString();
    return QString();
}
