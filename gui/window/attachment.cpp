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

// What other programs only show or play. Other types may be run, or refer to other files and
// addresses, as playlists, pages, vector pictures and movies of QuickTime do.
constexpr std::array openedTypes{
    "application/pdf"_L1,    "audio/AMR"_L1,       "audio/AMR-WB"_L1,       "audio/aac"_L1,
    "audio/flac"_L1,         "audio/midi"_L1,      "audio/mp4"_L1,          "audio/mpeg"_L1,
    "audio/ogg"_L1,          "audio/vnd.wave"_L1,  "audio/x-wav"_L1,        "audio/x-opus+ogg"_L1,
    "audio/x-vorbis+ogg"_L1, "image/bmp"_L1,       "image/gif"_L1,          "image/jpeg"_L1,
    "image/png"_L1,          "image/tiff"_L1,      "image/vnd.wap.wbmp"_L1, "image/webp"_L1,
    "text/calendar"_L1,      "text/plain"_L1,      "text/vcard"_L1,         "video/3gpp"_L1,
    "video/3gpp2"_L1,        "video/mp4"_L1,       "video/mpeg"_L1,         "video/vnd.avi"_L1,
    "video/webm"_L1,         "video/x-msvideo"_L1,
};

bool isOpened(const QMimeType &type)
{
    return std::ranges::any_of(openedTypes, [&type](QLatin1StringView name) {
        return type.name() == name || type.aliases().contains(name);
    });
}

// The content decides. The name must not say that it is something else, either: some programs go by
// the name.
bool mayBeOpened(const QMimeType &content, const QMimeType &name)
{
    return isOpened(content) && (name.isDefault() || isOpened(name));
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
