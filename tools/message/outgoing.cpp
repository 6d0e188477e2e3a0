#include "message/outgoing.h"

#include "message/message.h"
#include "view/header_view.h"

#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <array>
#include <memory>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

// When slides are written, the root layout's colour takes the place of their own, and as it is
// none, every object loses its first param with the page colour. So there is a second one, behind
// the other params as it will be again when the text is read.
void keepPageColour(Slide *slide)
{
    if (!slide->getPageColor().isUsable())
        return;
    const QString param = QStringLiteral("background-color");
    const QString colour = slide->getPageColor().color.name();
    slide->updateTextColorToElem();
    slide->updateTextSizeToElem();
    for (unsigned int i = 0; i < slide->getMediaObjectCount(); ++i) {
        slide->getMediaObject(i)->updateParamByName(param, colour);
        slide->getMediaObject(i)->appendParamElem(param, colour, SMIL_PARAM_VALUE_DATA, QString());
    }
}

// A root layout with a colour is written as text that does not read back. Slides show the same in
// their own colours, and its colour would take their place anyway.
void moveRootColourToSlides(MMS_COMP_SMILData *slides)
{
    MMS_COMP_SMILRootLayout *root = slides->getRootLayout();
    if (!root || !root->getBackgroundColor()->isUsable())
        return;
    for (unsigned int i = 0; i < slides->getTotalSlidesNum(); ++i)
        slides->getSlide(i)->setPageColor(*root->getBackgroundColor());
    *root->getBackgroundColor() = MMS_COMP_COLOR();
}

QByteArray encodedHeader(MMS_UA_UAMsg *header)
{
    unsigned char *octets = nullptr;
    int length = 0;
    const auto result = MMS_UA_Encoder().encodeHeader(header, &octets, &length);
    const std::unique_ptr<unsigned char[]> owner(octets);
    return result == WireResult::Written
        ? QByteArray(reinterpret_cast<const char *>(octets), length)
        : QByteArray();
}

// Fields that the decoder does not give back as they were set.
bool changesOnTheWay(const QString &field)
{
    constexpr std::array names{"Content-Type", "Date", "Expiry", "Sender-Visibility"};
    return std::ranges::any_of(names,
                               [&](const char *name) { return field == QLatin1String(name); });
}

// The decoder leaves the end of a text that begins with a character outside of ASCII in it.
QString withoutZero(QString text)
{
    return text.remove(QChar::Null);
}

QString changedField(const Message &sent, const Message &read)
{
    const QList<FieldView> readFields = headerView(read.header);
    for (const FieldView &field : headerView(sent.header)) {
        const bool same = std::ranges::any_of(readFields, [&](const FieldView &other) {
            return other.name == field.name && withoutZero(other.text) == field.text;
        });
        if (!same && !changesOnTheWay(field.name))
            return field.name;
    }
    return QString();
}

QString changedPart(const Message &sent, const Message &read)
{
    if (sent.body.getPartCount() != read.body.getPartCount())
        return QStringLiteral("%1 parts").arg(sent.body.getPartCount());
    for (int i = 0; i < sent.body.getPartCount(); ++i) {
        const Part &part = *sent.body.getBodypartByIndex(i);
        const Part &other = *read.body.getBodypartByIndex(i);
        if (part.getContentLocation() != other.getContentLocation()
            || part.getMimeFormat().compare(other.getMimeFormat(), Qt::CaseInsensitive) != 0
            || part.getBodyData() != other.getBodyData())
            return part.getContentLocation();
    }
    return QString();
}

bool writeAll(QFileDevice *file, const QByteArray &octets)
{
    return file->write(octets) == octets.size() && file->flush();
}

// A device or a folder in the place of the file would be replaced by it.
bool isReplaceable(const QFileInfo &info)
{
    return !info.exists() || info.isFile();
}

QString whyNotWritten(const QFileInfo &info, const QString &systemsWord)
{
    const QString text = QLatin1String("cannot write ") + info.filePath() + QLatin1String(": ");
    if (!isReplaceable(info))
        return text
            + QLatin1String("it is a folder or a device; name a file, or - for standard output");
    if (!QFileInfo(info.path()).isDir())
        return text + QLatin1String("there is no folder ") + info.path()
            + QLatin1String("; make it first");
    return text + systemsWord;
}

} // namespace

QByteArray Outgoing::smilOf(MMS_COMP_SMILData *slides)
{
    moveRootColourToSlides(slides);
    for (unsigned int i = 0; i < slides->getTotalSlidesNum(); ++i)
        keepPageColour(slides->getSlide(i));
    return MMS_COMP_SMILParser::convertToSMILLang(slides).toUtf8();
}

QByteArray Outgoing::pduOf(Message *message)
{
    const QByteArray body =
        MMS_COMP_SMILMultipartParser::assembleBody(&message->body, &message->header);
    return encodedHeader(&message->header) + body; // whose content type was settled with the body
}

QString Outgoing::whatChanges(const Message &sent)
{
    const auto read = decodeMessage(sent.octets);
    if (read->isRefused())
        return QStringLiteral("the message");
    if (QString field = changedField(sent, *read); !field.isEmpty())
        return field;
    if (QString part = changedPart(sent, *read); !part.isEmpty())
        return part;
    const bool sameSlides = read->smil.isEmpty() || smilOf(&read->slides) == read->smil;
    return sameSlides ? QString() : QStringLiteral("the slides");
}

bool Outgoing::write(const QByteArray &octets, const QString &fileName, QString *error)
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
    *error = whyNotWritten(info, out.errorString());
    return false;
}
