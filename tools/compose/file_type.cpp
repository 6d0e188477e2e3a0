#include "compose/file_type.h"

#include <QMimeDatabase>
#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

bool isImageOrClip(const QString &type)
{
    constexpr std::array kinds{SMIL_MEDIA_IMAGE, SMIL_MEDIA_VIDEO, SMIL_MEDIA_AUDIO};
    return std::ranges::any_of(kinds, [&](MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind) {
        return type == qvlMediaKind(kind)->mainType;
    });
}

// Finds the type of files with an extension.
FileType typeByExtension(const QString &extension)
{
    FileType found{.type = {}, .subtype = {}, .source = QLatin1String("by its extension")};
    MMS_COMP_Util::getMIMETypeByExtName(extension, found.type, found.subtype);
    return found;
}

// The tables may know a type by another name than the database, or know only the type that it
// extends.
FileType typeByContent(const QByteArray &octets)
{
    const QMimeType recognized = QMimeDatabase().mimeTypeForData(octets);
    const bool isText = recognized.name() == QLatin1String("text/plain") && isUtf8(octets);
    for (const QString &name :
         QStringList(recognized.name()) + recognized.aliases() + recognized.allAncestors()) {
        FileType found = typeByExtension(MMS_COMP_Util::getFirstSupportExtNameByMIMEType(
            Part::getTypePartFromFormat(name), Part::getSubTypePartFromFormat(name)));
        if (!isText && !isImageOrClip(found.type))
            continue;
        found.source = QLatin1String("by its content");
        return found;
    }
    return {};
}

} // namespace

bool isUtf8(const QByteArray &octets)
{
    QStringDecoder decode(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decode(octets);
    return !decode.hasError();
}

FileType fileTypeOf(const QString &fileName, const QByteArray &octets)
{
    const FileType found = typeByExtension(MMS_COMP_Util::getExtName(fileName));
    return found.isKnown() ? found : typeByContent(octets);
}

FileType attachmentType(const QString &fileName, const QByteArray &octets)
{
    const FileType found = fileTypeOf(fileName, octets);
    return found.isKnown()
        ? found
        : FileType{QStringLiteral("application"), QStringLiteral("octet-stream"), {}};
}

std::unique_ptr<Part> newPart(const FileType &type, const QString &location,
                              const QByteArray &octets)
{
    auto part = std::make_unique<Part>();
    part->setContentType(type.type);
    part->setContentSubType(type.subtype);
    part->setContentLocation(location);
    part->setBodyData(octets);
    return part;
}
