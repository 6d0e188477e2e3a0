#include "check/check.h"
#include "check/media_size.h"
#include "check/part_keys.h"
#include "check/sent_body.h"
#include "check/smil_outline.h"
#include "input/message.h"
#include "input/smil_diagnosis.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

using namespace Qt::StringLiterals;

namespace Check {

namespace {

constexpr double LowestText = 8; // pixels of a line of small text

Place placeOf(const SmilElement &element)
{
    return {.line = element.line, .column = element.column};
}

Place placeOf(const SmilText::Place &place)
{
    return {.line = place.line, .column = place.column};
}

bool isMedia(const SmilElement &element)
{
    return std::ranges::any_of(
        qvlMediaKinds, [&element](const QvlMediaKind &kind) { return element.tag == kind.tag; });
}

bool isSlide(const SmilElement &element)
{
    return element.tag == "par"_L1 || element.tag == "seq"_L1;
}

/// The part that a reference names.
struct Named
{
    int part = -1; ///< its index; -1 for none
    QString name; ///< as the part has it, without brackets
};

// "cid:a%40b" refers to <a@b>, and "./a" to "a".
QString unescaped(const QString &reference)
{
    const QString bare = bareName(reference);
    return QUrl::fromPercentEncoding((bare.startsWith("./"_L1) ? bare.sliced(2) : bare).toUtf8());
}

/// Parts by the names that references may have.
class PartsByName
{
public:
    explicit PartsByName(const MMS_COMP_SMILMultipart &parts)
    {
        for (int i = 0; i < parts.getPartCount(); ++i) {
            const auto &part = *parts.getBodypartByIndex(i);
            add(part.getContentLocation(), i);
            add(part.getContentID(), i);
        }
    }

    /// The part with that name, first of all the exact one; then apart from case, or unescaped.
    Named find(const QString &reference) const
    {
        const QString name = bareName(reference);
        if (const auto exact = m_exact.constFind(name); exact != m_exact.constEnd())
            return {*exact, name};
        const auto found = m_parts.constFind(partKey(reference));
        return found != m_parts.constEnd() ? *found : m_parts.value(unescaped(reference).toLower());
    }

private:
    void add(const QString &name, int index)
    {
        const QString key = partKey(name);
        if (!key.isEmpty() && !m_parts.contains(key))
            m_parts.insert(key, {index, bareName(name)});
        if (!key.isEmpty() && !m_exact.contains(bareName(name)))
            m_exact.insert(bareName(name), index);
    }

    QHash<QString, int> m_exact;
    QHash<QString, Named> m_parts;
};

/// The size of a region as it was sent.
struct RegionSize
{
    double width;
    double height;
    bool isCutting; // media are neither scaled nor scrolled
};

// The number that the text begins with.
std::optional<double> leadingNumber(const QString &text)
{
    const QByteArray octets = text.toLatin1();
    double number = 0;
    const auto read = std::from_chars(octets.begin(), octets.end(), number);
    return read.ec == std::errc() ? std::optional(number) : std::nullopt;
}

// In pixels; nothing when it is not given, or in percent of an unknown size.
std::optional<double> pixels(const QString &text, std::optional<double> whole)
{
    const std::optional<double> number = leadingNumber(text);
    if (!number || !text.contains(u'%'))
        return number;
    return whole ? std::optional(*number * *whole / 100) : std::nullopt;
}

/// The regions of a SMIL text that have a size.
class Regions
{
public:
    explicit Regions(const std::vector<SmilElement> &elements)
    {
        std::optional<double> width;
        std::optional<double> height;
        for (const SmilElement &element : elements) {
            if (element.tag == "root-layout"_L1 && !element.isSkipped) {
                width = leadingNumber(element.value(SmilAttribute::Width));
                height = leadingNumber(element.value(SmilAttribute::Height));
            }
        }
        for (const SmilElement &element : elements) {
            if (element.tag == "region"_L1 && !element.isSkipped)
                add(element, width, height);
        }
    }

    std::optional<RegionSize> find(const QString &id) const
    {
        const auto found = m_regions.constFind(id);
        return found == m_regions.constEnd() ? std::nullopt : std::optional(*found);
    }

private:
    void add(const SmilElement &element, std::optional<double> rootWidth,
             std::optional<double> rootHeight)
    {
        const auto width = pixels(element.value(SmilAttribute::Width), rootWidth);
        const auto height = pixels(element.value(SmilAttribute::Height), rootHeight);
        const QString fit = element.value(SmilAttribute::Fit);
        const QString id = element.value(SmilAttribute::Id);
        if (width && height && !id.isEmpty())
            m_regions.insert(id, {*width, *height, fit.isEmpty() || fit == "hidden"_L1});
    }

    QHash<QString, RegionSize> m_regions;
};

QString sizeText(double width, double height)
{
    return u"%1x%2"_s.arg(width).arg(height);
}

/// Checks the media of a presentation.
class MediaChecks
{
public:
    MediaChecks(const Message &message, const std::vector<SmilElement> &elements,
                Findings *findings)
        : m_message(message), m_names(message.parts()), m_regions(elements), m_findings(findings)
    {
    }

    void check(const SmilElement &element)
    {
        const QString source = element.value(SmilAttribute::Src);
        const auto [part, name] = m_names.find(source);
        if (part < 0) {
            m_findings->add(Rule::MissingPart, placeOf(element),
                            source.isEmpty() ? u"<%1> has no src"_s.arg(element.tag)
                                             : u"no part is named \"%1\""_s.arg(source));
            return;
        }
        if (name != bareName(source))
            m_findings->add(Rule::OtherSpelling, placeOf(element),
                            u"\"%1\" refers to the part \"%2\""_s.arg(source, name));
        m_used.insert(part);
        if (const auto region = m_regions.find(element.value(SmilAttribute::Region)))
            checkRegion(element, part, *region);
    }

    bool isUsed(int part) const { return m_used.contains(part); }

private:
    void checkRegion(const SmilElement &element, int part, const RegionSize &region)
    {
        const QString size = sizeText(region.width, region.height);
        if (element.tag == "text"_L1 && (region.width < LowestText || region.height < LowestText))
            m_findings->add(Rule::SmallRegion, placeOf(element),
                            u"the region of %1 pixels has no room for a text"_s.arg(size));
        if (element.tag == "text"_L1 || element.tag == "audio"_L1 || !region.isCutting)
            return;
        const Measured &medium = measured(part);
        if (medium.size.width() > region.width || medium.size.height() > region.height)
            m_findings->add(Rule::SmallRegion, placeOf(element),
                            u"the %1 has %2 pixels and the region %3"_s.arg(
                                QLatin1StringView(medium.name),
                                sizeText(medium.size.width(), medium.size.height()), size));
    }

    struct Measured
    {
        const char *name;
        QSize size; // empty if it is not known
    };

    const Measured &measured(int index)
    {
        const auto known = m_measured.constFind(index);
        if (known != m_measured.constEnd())
            return *known;
        const auto &part = *m_message.parts().getBodypartByIndex(index);
        const QSize video = videoSize(part.getBodyData());
        return *m_measured.insert(index,
                                  video.isEmpty() ? Measured{"picture", pictureSize(part)}
                                                  : Measured{"video", video});
    }

    const Message &m_message;
    const PartsByName m_names;
    const Regions m_regions;
    Findings *m_findings;
    QHash<int, Measured> m_measured; // by the index of the part
    QSet<int> m_used;
};

// The library begins to read at "<smil", and takes other octets for the replacement character.
void checkXml(const QByteArray &smil, Findings *findings)
{
    if (smil.startsWith("<smil") && smil.isValidUtf8())
        return; // then the library read the same text
    if (const auto mistake = findXmlMistake(smil))
        findings->add(Rule::InvalidXml, placeOf(mistake->place), mistake->reason);
}

bool isRefused(const Message &message)
{
    return message.smilResult.value_or(SmilResult::Ok) < SmilResult::Ok;
}

/// Why a presentation is refused, and the skipped element that is the reason.
struct Refusal
{
    int result;
    const char *tag; // null for any
    int level;
};

constexpr std::array refusals{
    Refusal{SmilResult::NotSmil, nullptr, 0},
    Refusal{SmilResult::HeadAfterBody, "head", 1},
    Refusal{SmilResult::SecondHead, "head", 1},
    Refusal{SmilResult::SecondBody, "body", 1},
};

// The element at the wrong place; null for other reasons.
const SmilElement *misplaced(int result, const std::vector<SmilElement> &elements)
{
    const auto refusal = std::ranges::find(refusals, result, &Refusal::result);
    if (refusal == refusals.end())
        return nullptr;
    const auto found = std::ranges::find_if(elements, [&](const SmilElement &element) {
        return element.isSkipped && element.level == refusal->level
            && (!refusal->tag || element.tag == QLatin1StringView(refusal->tag));
    });
    return found == elements.end() ? nullptr : &*found;
}

void checkSmil(const Message &message, const SmilElement *misplacedElement, Findings *findings)
{
    if (!isRefused(message))
        return message.smilResult ? checkXml(message.smil, findings) : void();
    const int result = *message.smilResult;
    const auto mistake =
        result == SmilResult::NotWellFormed ? findMistake(message.smil) : std::nullopt;
    if (mistake)
        return findings->add(Rule::SmilRefused, placeOf(mistake->place), mistake->reason);
    findings->add(Rule::SmilRefused, misplacedElement ? placeOf(*misplacedElement) : Place{},
                  QString::fromLatin1(SmilResult::meaning(result)));
}

// clock-value ::= [hours ":"] minutes ":" seconds | number ["h" | "min" | "s" | "ms"]
bool isNoTime(const QString &clockValue)
{
    static const QRegularExpression zero(u"^[+]?(0+:){0,2}0*[.]?0+[.]?(h|min|s|ms)?$"_s);
    const QString value = clockValue.trimmed();
    return value.startsWith(u'-') || zero.match(value).hasMatch();
}

// Also "media", the length of the clips.
bool isDuration(const QString &text)
{
    static const QRegularExpression clockValue(
        u"^[+]?((\\d+:)?[0-5]\\d:[0-5]\\d([.]\\d*)?|\\d+([.]\\d*)?(h|min|s|ms)?)$"_s);
    return text == "indefinite"_L1 || text == "media"_L1 || clockValue.match(text).hasMatch();
}

void checkTime(const SmilElement &element, Findings *findings)
{
    if (!isSlide(element) && !isMedia(element))
        return;
    for (const auto &[attribute, value] : element.attributes) {
        const bool isDur = attribute == SmilAttribute::Dur;
        if ((isDur || attribute == SmilAttribute::End) && isNoTime(value))
            findings->add(Rule::ZeroDuration, placeOf(element),
                          u"<%1> has %2=\"%3\""_s.arg(element.tag, isDur ? u"dur" : u"end", value));
        else if (isDur && !isDuration(value))
            findings->add(Rule::UnreadableDuration, placeOf(element),
                          u"<%1> has dur=\"%2\""_s.arg(element.tag, value));
    }
}

void checkElement(const SmilElement &element, MediaChecks *media, Findings *findings)
{
    if (element.isSkipped)
        return findings->add(Rule::SkippedElement, placeOf(element),
                             u"<%1> is skipped"_s.arg(element.tag));
    checkTime(element, findings);
    if (isMedia(element))
        media->check(element);
}

void checkUse(Message &message, const MediaChecks &media, Findings *findings)
{
    const auto *smil = message.parts().getSmilPart();
    const SentBody body(message);
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        if (message.parts().getBodypartByIndex(i) != smil && !media.isUsed(i))
            findings->add(Rule::UnusedPart, body.placeOf(i), u"no slide refers to the part"_s);
    }
}

} // namespace

void checkPresentation(Message &message, Findings *findings)
{
    if (!message.parts().getSmilPart()) {
        if (message.parts().getPartCount() > 0)
            findings->add(Rule::NoSlides, {}, u"the message has no presentation"_s);
        return;
    }
    const std::vector<SmilElement> elements = smilOutline(message.smil);
    const SmilElement *reason =
        isRefused(message) ? misplaced(*message.smilResult, elements) : nullptr;
    checkSmil(message, reason, findings);
    MediaChecks media(message, elements, findings);
    for (const SmilElement &element : elements) {
        if (&element != reason)
            checkElement(element, &media, findings);
    }
    if (elements.empty() || isRefused(message))
        return;
    if (message.slides().getTotalSlidesNum() == 0)
        findings->add(Rule::NoSlides, {}, u"the presentation has no slides"_s);
    checkUse(message, media, findings);
}

} // namespace Check
