#include "extract/extract.h"

#include "input/file_name.h"
#include "input/files.h"
#include "input/message.h"
#include "output/unfinished_file.h"
#include "output/write_file.h"
#include "view/file_view.h"
#include "view/terminal_text.h"

#include <algorithm>
#include <cerrno>

namespace {

constexpr int LongestFileName = 200; // octets; file systems allow 255, and a number may be added
constexpr int MostTries = 10000;

using Part = MMS_COMP_SMILMultipartBodypart;
using TerminalText::visible;

// Removes whole characters from the end of the base until the name fits.
QString shortened(const QString &name)
{
    const QString ext = MMS_COMP_Util::getExtName(name).left(LongestFileName / 4);
    QString base = MMS_COMP_Util::getNoExtName(name).left(LongestFileName);
    while (!base.isEmpty() && withExtension(base, ext).toUtf8().size() > LongestFileName)
        base.chop(base.size() > 1 && base.back().isLowSurrogate() ? 2 : 1);
    return withExtension(base, ext);
}

QString withNumber(const QString &name, int number)
{
    if (number == 0)
        return name;
    const QString base = MMS_COMP_Util::getNoExtName(name) + QLatin1Char('_');
    return withExtension(base + QString::number(number), MMS_COMP_Util::getExtName(name));
}

// Writes a file that did not exist before. Returns 0, or the number of the error. @p path is the
// last path that was tried.
int writeNew(const QByteArray &octets, const QString &directory, const QString &name, QString *path)
{
    *path = FileName::inFolder(directory, name);
    UnfinishedFile file(FileName::toOctets(directory));
    if (const int error = file.write(octets))
        return error;
    int error = EEXIST;
    for (int number = 0; number < MostTries && error == EEXIST; ++number) {
        *path = FileName::inFolder(directory, withNumber(name, number));
        error = file.moveTo(FileName::toOctets(*path), UnfinishedFile::Keep);
    }
    return error;
}

QString fallbackName(const Part &part, int index)
{
    const QString ext =
        MMS_COMP_Util::getFirstSupportExtNameByMIMEType(part.getContentType(), part.getSubType());
    return withExtension(QStringLiteral("part-%1").arg(index), ext);
}

QString decodingText(const Message &message, int part)
{
    const auto isDecoding = [part](const QvlChange &change) {
        return change.part == part && change.place == QvlChange::PartBody;
    };
    return std::ranges::any_of(message.changes(), isDecoding)
        ? QStringLiteral(", decoded from base64 or quoted-printable")
        : QString();
}

} // namespace

QString safeFileName(const QString &location, const QString &fallback)
{
    const QString last =
        location.section(QLatin1Char('/'), -1).section(QLatin1Char('\\'), -1).trimmed();
    QString name;
    for (char32_t character : last.toUcs4()) {
        const QString text = QString::fromUcs4(&character, 1);
        name += visible(text) == text ? text : QStringLiteral("_");
    }
    while (name.startsWith(QLatin1Char('.')))
        name = name.sliced(1);
    if (name.startsWith(QLatin1Char('-')))
        name.front() = QLatin1Char('_');
    return name.isEmpty() ? fallback : shortened(name);
}

QString partFileName(const MMS_COMP_SMILMultipartBodypart &part, int index)
{
    return safeFileName(part.getDispFileName(), fallbackName(part, index));
}

bool extractParts(const Message &message, const QString &directory, Report *report, QString *error)
{
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        const Part &part = *message.parts().getBodypartByIndex(i);
        QString path;
        if (const int failure =
                writeNew(part.getBodyData(), directory, partFileName(part, i), &path)) {
            *error = cannotWrite(path, qt_error_string(failure));
            return false;
        }
        report->written += writtenFileText(
            path,
            QStringLiteral(" (%1 octets, ").arg(part.getBodyDataLen()) + part.getMimeFormat()
                + decodingText(message, i) + QLatin1Char(')'));
    }
    return true;
}
