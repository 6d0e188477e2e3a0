#include "compose/composer.h"

#include "compose/file_type.h"
#include "compose/new_message.h"
#include "compose/read_back.h"
#include "compose/values.h"
#include "input/files.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

// How the command takes media of a kind.
struct MediaKind
{
    MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE element;
    const char *place; ///< what a slide already has when it takes no more
    const char *option; ///< option of the command that takes such a file
};

constexpr std::array mediaKinds{
    MediaKind{SMIL_MEDIA_TEXT, "a text", "--text-file"},
    MediaKind{SMIL_MEDIA_IMAGE, "an image or a video", "--image"},
    MediaKind{SMIL_MEDIA_VIDEO, "an image or a video", "--video"},
    MediaKind{SMIL_MEDIA_AUDIO, "an audio", "--audio"},
};

const MediaKind &mediaKindOf(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE element)
{
    return *std::ranges::find(mediaKinds, element, &MediaKind::element);
}

// The option that takes files of this type.
QLatin1String optionTaking(const QString &type)
{
    const auto kind = std::ranges::find_if(mediaKinds, [&](const MediaKind &candidate) {
        return type == qvlMediaKind(candidate.element)->mainType;
    });
    return QLatin1String(kind != mediaKinds.end() ? kind->option : "--attach");
}

Problem refused(const QString &text)
{
    return {Problem::Content, text};
}

Problem tooLarge(const QString &what, qint64 limit)
{
    return refused(
        what
        + QStringLiteral(
              " more than the limit of %1 octets (%2 KB); send less, or set a higher limit with "
              "--max-size")
              .arg(limit)
              .arg(limit / 1024));
}

} // namespace

Composer::Composer() : m_limit(qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024)
{
    beginHeader(&header());
}

Outcome Composer::attach(const QString &fileName)
{
    QByteArray octets;
    if (auto problem = read(fileName, &octets))
        return problem;
    const FileType type = attachmentType(fileName, octets);
    const QString location =
        m_message.parts().createUniqueLocation(ComposeValues::locationFor(fileName));
    m_message.parts().appendBodypart(newPart(type, location, octets).release());
    return {};
}

void Composer::addSlide()
{
    m_message.slides().appendSlide(unsigned(Slide::DefaultDuration));
    m_wishes += SlideWishes();
}

Slide &Composer::slide()
{
    return *m_message.slides().getSlide(unsigned(slideCount() - 1));
}

Outcome Composer::addText(const QString &text)
{
    if (auto problem = admit(SMIL_MEDIA_TEXT))
        return problem;
    return place(SMIL_MEDIA_TEXT, QStringLiteral("slide%1.txt").arg(slideCount()),
                 QStringLiteral("plain"), text.toUtf8());
}

Outcome Composer::addTextFile(const QString &fileName)
{
    QByteArray octets;
    if (auto problem = admit(SMIL_MEDIA_TEXT))
        return problem;
    if (auto problem = read(fileName, &octets))
        return problem;
    if (!isUtf8(octets))
        return refused(fileName + QLatin1String(" is not UTF-8 text; convert it with iconv"));
    return place(SMIL_MEDIA_TEXT, fileName, QStringLiteral("plain"), octets);
}

Outcome Composer::addMedia(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind, const QString &fileName)
{
    QByteArray octets;
    if (auto problem = admit(kind))
        return problem;
    if (auto problem = read(fileName, &octets))
        return problem;
    const FileType type = fileTypeOf(fileName, octets);
    if (!type.isKnown())
        return refused(
            QLatin1String("the type of ") + fileName
            + QLatin1String(" is not known by its extension or its content; give the file the "
                            "extension of its type, such as .jpg, or send it with --attach"));
    const auto part = newPart(type, fileName, octets);
    const QLatin1String expected = qvlMediaKind(kind)->mainType;
    if (type.type != expected)
        return refused(fileName + QLatin1String(" is ") + part->getMimeFormat() + QLatin1Char(' ')
                       + type.source + QLatin1String(", not ") + expected + QLatin1String("; use ")
                       + optionTaking(type.type));
    if (!part->isMediaObjectSupported())
        return refused(
            fileName + QLatin1String(" cannot be shown or played as ") + part->getMimeFormat()
            + QLatin1String("; it may be damaged or misnamed; --attach sends it unchanged"));
    return place(kind, fileName, type.subtype, octets);
}

// Reads no more of a file than a message may have.
Outcome Composer::read(const QString &fileName, QByteArray *octets)
{
    QString error;
    if (!readStart(fileName, m_limit + 1, octets, &error))
        return Problem{Problem::File, error};
    m_read += octets->size();
    if (m_read > m_limit)
        return tooLarge(QLatin1String("the message with ") + fileName + QLatin1String(" has"),
                        m_limit);
    return {};
}

Outcome Composer::admit(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind)
{
    if (slide().canBeInserted(qvlMediaKind(kind)->tag))
        return {};
    return refused(QStringLiteral("slide %1 already has ").arg(slideCount())
                   + QLatin1String(mediaKindOf(kind).place)
                   + QLatin1String("; begin a new slide with --slide"));
}

Outcome Composer::place(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind, const QString &name,
                        const QString &subtype, const QByteArray &octets)
{
    MMS_COMP_SMILData &slides = m_message.slides();
    const QString source = slides.createUniqueSrc(ComposeValues::locationFor(name));
    if (!slide().updateData(regionOf(slides, kind), source, kind, subtype, octets, true,
                            &m_message.parts()))
        return refused(QStringLiteral("there is no memory"));
    return {};
}

Outcome Composer::finishSlide(int index)
{
    Slide &slide = *m_message.slides().getSlide(unsigned(index));
    const QString name = QStringLiteral("slide %1").arg(index + 1);
    if (slide.getMediaObjectCount() == 0)
        return refused(
            name + QLatin1String(" has no text, picture or audio; add one, or remove the slide"));
    if (!slide.getTextElem(false)
        && (slide.getTextColor().isUsable() || !slide.getTextSize().isEmpty()))
        return refused(name
                       + QLatin1String(" has a text color or size, but no text; add one "
                                       "with --text"));
    const SlideWishes &wishes = m_wishes[index];
    if (wishes.textAbovePicture) {
        if (Object *text = slide.getTextElem(true))
            slide.insert(0, text);
    }
    if (wishes.duration) {
        slide.setDur(*wishes.duration);
        slide.setSetDurManually(true);
    } else {
        slide.rectifyDur();
    }
    return {};
}

Outcome Composer::finishSlides()
{
    MMS_COMP_SMILData &slides = m_message.slides();
    slides.removeEmptyTextBeforeSend();
    for (int i = 0; i < slideCount(); ++i) {
        if (auto problem = finishSlide(i))
            return problem;
    }
    MMS_COMP_SMILParser::updateToCorvaneRootLayout(&slides);
    MMS_COMP_SMILParser::updateToCorvaneRegion(&slides);
    if (!m_message.storeSlides())
        throw std::bad_alloc();
    return {};
}

Outcome Composer::finish()
{
    if (header().getToRecipients().isEmpty() && header().getCcRecipients().isEmpty()
        && header().getBccRecipients().isEmpty())
        return Problem{Problem::Usage,
                       QStringLiteral("a message needs a recipient: --to, --cc or --bcc")};
    if (slideCount() == 0 && partCount() == 0)
        return Problem{Problem::Usage,
                       QStringLiteral("a message needs content, such as --text or --attach")};
    if (slideCount() == 0) {
        m_message.parts().setSubType(QStringLiteral("vnd.wap.multipart.mixed"));
    } else if (auto problem = finishSlides()) {
        return problem;
    }
    return encode();
}

Outcome Composer::encode()
{
    if (partCount() > QvlMessage::MostParts)
        return refused(QStringLiteral("%1 parts are too many; a message has at most %2")
                           .arg(partCount())
                           .arg(QvlMessage::MostParts));
    const auto result = m_message.encode(&m_message.octets);
    requireMemory(result);
    if (!result.isOk())
        return refused(QLatin1String(result.layerName()) + QLatin1String(" cannot be written: ")
                       + QLatin1String(result.meaning()));
    if (pdu().size() > m_limit)
        return tooLarge(QStringLiteral("the message has %1 octets,").arg(pdu().size()), m_limit);
    const QString changed = whatChanges(m_message);
    if (!changed.isEmpty())
        return refused(
            changed + QLatin1String(" would be different when read back; change it or remove it"));
    return {};
}
