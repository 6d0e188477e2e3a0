#include "check/charset_fit.h"
#include "check/check.h"
#include "check/media_signatures.h"
#include "check/media_size.h"
#include "check/sent_body.h"
#include "input/message.h"
#include "render/pictures.h"
#include "view/field_values.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace Check {

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

constexpr qint64 MostDecodedPixels = 40'000'000; // of all pictures
constexpr qint64 MostPixels = 64'000'000; // 256 MB when decoded

// Others, such as vCards and HTML, may declare their charset inside.
bool isPlainText(const QString &type)
{
    return type == "text/plain"_L1;
}

bool isClip(const QString &type)
{
    return type.startsWith("audio/"_L1) || type.startsWith("video/"_L1);
}

void checkText(const Part &part, const QvlScannedPart *sent, const Place &place, Findings *findings)
{
    const int charset = sent ? sent->charset() : 0;
    const QByteArrayView octets = sent && sent->transferEncoding().isEmpty()
        ? sent->data
        : QByteArrayView(part.getBodyData());
    if (fitsCharset(octets, charset))
        return;
    findings->add(Rule::TextCharset, place,
                  charset == 0 ? u"the text has octets above 7F and no charset"_s
                               : u"the text is not in %1"_s.arg(FieldValue::charsetName(charset)));
}

// True when the content is of the kind that the type says, so far as a signature shows.
bool checkType(const Part &part, const QString &type, const Place &place, Findings *findings)
{
    if (fitsType(part.getBodyData(), type))
        return true;
    const MediaContent content = recognizeMedia(part.getBodyData());
    findings->add(Rule::WrongType, place,
                  content.name.isEmpty()
                      ? u"the content does not begin as %1 does"_s.arg(type)
                      : u"the type is %1, and the content is %2"_s.arg(type, content.name));
    return content.type.startsWith(type.section(u'/', 0, 0));
}

// The formats of other pictures depend on the machine.
bool isAlwaysDecoded(const Part &part, const QString &type)
{
    constexpr std::array builtIn{"image/jpeg"_L1, "image/png"_L1, "image/gif"_L1, "image/bmp"_L1};
    const QString recognized = recognizeMedia(part.getBodyData()).type;
    return std::ranges::any_of(builtIn, [&](QLatin1StringView known) {
        return known == recognized || (recognized.isEmpty() && known == type);
    });
}

void checkPicture(const Part &part, const QString &type, const Place &place, Pictures *pictures,
                  Findings *findings)
{
    if (endsTooEarly(part.getBodyData()))
        return findings->add(Rule::BrokenPicture, place, u"the picture ends too early"_s);
    const QSize size = pictureSize(part);
    if (qint64(size.width()) * size.height() > MostPixels)
        return findings->add(
            Rule::LargePicture, place,
            u"the picture has %1x%2 pixels"_s.arg(size.width()).arg(size.height()));
    const bool isDecoded = !pictures->find(part, QSizeF(1, 1)).image.isNull();
    if (!isDecoded && !pictures->isBeyondLimit(part) && isAlwaysDecoded(part, type))
        findings->add(Rule::BrokenPicture, place, u"the picture cannot be decoded"_s);
}

void checkClip(Part *part, const Place &place, Findings *findings)
{
    if (part->getPlayDur() < 0)
        findings->add(Rule::NoClipLength, place, u"the length cannot be measured"_s);
}

} // namespace

void checkContent(Message &message, Findings *findings)
{
    const SentBody body(message);
    Pictures pictures(MostDecodedPixels);
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        Part *part = message.parts().getBodypartByIndex(i);
        if (part->getBodyDataLen() == 0)
            continue;
        const Place place = body.placeOf(i);
        const QString type = part->getMimeFormat().toLower();
        if (isPlainText(type))
            checkText(*part, body.part(i), place, findings);
        const bool isAsDeclared = checkType(*part, type, place, findings);
        if (isAsDeclared && type.startsWith("image/"_L1) && findings->takes(Rule::BrokenPicture))
            checkPicture(*part, type, place, &pictures, findings);
        if (isAsDeclared && isClip(type) && findings->takes(Rule::NoClipLength))
            checkClip(part, place, findings);
    }
}

} // namespace Check
