#include "compose/options.h"

#include "compose/values.h"

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

namespace {

using enum ComposeOption::Group;
using namespace HeaderFieldCode;
using Msg = MMS_UA_UAMsg;
using Slide = MMS_COMP_SMILTimingContainer;
using Words = std::span<const char *const>;

constexpr int LargestLimit = 100 * 1024; // kilobytes

constexpr std::array textSizes{"small", "normal", "large"};

// Everyone reads the subject, the addresses and the names of parts.
constexpr const char *LineText = "text in UTF-8 without line feeds and other control characters";
constexpr const char *NameText =
    "text in UTF-8 without control characters and changes of the writing direction";

constexpr ComposeValue Address{"ADDRESS",
                               "a phone number such as +4915112345678 or an e-mail address"};
constexpr ComposeValue Color{
    "COLOR",
    "#rrggbb, aqua, black, blue, fuchsia, gray, green, lime, maroon, navy, olive, purple, red, "
    "silver, teal, white or yellow"};
constexpr ComposeValue Moment{"DATE",
                              "a date from 1970 to 2038-01-19 such as 2026-05-01T12:00:00Z"};
constexpr ComposeValue File{"FILE",
                            "a file; its extension determines its type, or else its content"};
constexpr ComposeValue values[] = {Address, Color, Moment, File};

Problem expected(const char *what)
{
    return {Problem::Value, QString::fromLatin1(what) + QLatin1String(" is expected")};
}

Problem expectedOneOf(Words words)
{
    QByteArray text = words.front();
    for (const char *word : words.subspan(1))
        text += (word == words.back() ? QByteArray(" or ") : QByteArray(", ")) + word;
    return expected(text.constData());
}

void addField(Composer &composer, unsigned char field)
{
    composer.header().addFieldsPresent(headerFieldMask(field));
}

template <unsigned char Field, auto Set>
Outcome setAddress(Composer &composer, const QString &text)
{
    if (!ComposeValues::isName(text))
        return expected(NameText);
    const auto entry = ComposeValues::address(text);
    if (!entry)
        return expected(Address.expected);
    (composer.header().*Set)(*entry);
    addField(composer, Field);
    return {};
}

template <unsigned char Field, auto Set>
Outcome setDateTime(Composer &composer, const QString &text)
{
    const auto time = ComposeValues::dateTime(text);
    if (!time)
        return expected(Moment.expected);
    (composer.header().*Set)(*time);
    addField(composer, Field);
    return {};
}

template <unsigned char Field, auto Set, auto Values>
Outcome setNamed(Composer &composer, const QString &text)
{
    std::vector<const char *> words;
    for (const auto &[value, name] : Values()) {
        words.push_back(name);
        if (text != QLatin1String(name))
            continue;
        (composer.header().*Set)(value);
        addField(composer, Field);
        return {};
    }
    return expectedOneOf(words);
}

template <unsigned char Field, auto Set, bool Value>
Outcome setFlag(Composer &composer, const QString &)
{
    (composer.header().*Set)(Value);
    addField(composer, Field);
    return {};
}

Outcome setSubject(Composer &composer, const QString &text)
{
    if (!ComposeValues::isLine(text))
        return expected(LineText);
    composer.header().setSubject(text);
    if (!text.isEmpty())
        addField(composer, Subject);
    return {};
}

Outcome setTransactionId(Composer &composer, const QString &text)
{
    const bool isVisible = std::ranges::all_of(
        text, [](QChar character) { return character > u' ' && character < u'\x7F'; });
    if (text.isEmpty() || !isVisible)
        return expected("a text of visible ASCII characters");
    composer.header().setTransactionId(text);
    return {};
}

Outcome setExpiry(Composer &composer, const QString &text)
{
    const auto seconds = ComposeValues::seconds(text);
    if (!seconds)
        return expected("a time such as 7d, 12h, 30m or 3600s");
    composer.header().setExpiry(*seconds);
    addField(composer, Expiry);
    return {};
}

Outcome setLimit(Composer &composer, const QString &text)
{
    const int kilobytes = text.toInt();
    if (kilobytes < 1 || kilobytes > LargestLimit)
        return expected("a number of KB from 1 to 102400");
    composer.setLimit(kilobytes);
    return {};
}

Outcome addSlide(Composer &composer, const QString &)
{
    composer.addSlide();
    return {};
}

Outcome addText(Composer &composer, const QString &text)
{
    if (!text.isValidUtf16()) // octets that are not UTF-8
        return expected("text in UTF-8");
    return composer.addText(text);
}

// The name of the file becomes the name of a part.
template <auto Add>
Outcome addFile(Composer &composer, const QString &fileName)
{
    if (!ComposeValues::isName(MMS_COMP_Util::stripePath(fileName)))
        return expected(NameText);
    return std::invoke(Add, composer, fileName);
}

template <MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE Kind>
Outcome addMedia(Composer &composer, const QString &fileName)
{
    return composer.addMedia(Kind, fileName);
}

Outcome setDuration(Composer &composer, const QString &text)
{
    const auto milliseconds = ComposeValues::milliseconds(text);
    if (!milliseconds)
        return expected("a duration above 0 such as 5s, 2500ms or 2.5");
    composer.setDuration(*milliseconds);
    return {};
}

template <auto Set>
Outcome setColor(Composer &composer, const QString &text)
{
    const auto color = ComposeValues::color(text);
    if (!color)
        return expected(Color.expected);
    (composer.slide().*Set)(*color);
    return {};
}

Outcome setTextSize(Composer &composer, const QString &text)
{
    const auto isText = [&](const char *size) { return text == QLatin1String(size); };
    if (std::ranges::none_of(textSizes, isText))
        return expectedOneOf(textSizes);
    composer.slide().setTextSize(text);
    return {};
}

template <bool Above>
Outcome placeText(Composer &composer, const QString &)
{
    composer.setTextAbovePicture(Above);
    return {};
}

constexpr ComposeOption options[] = {
    {"to", Address.name, "recipient; --to, --cc and --bcc may be repeated", Fields,
     setAddress<To, &Msg::addToRecipient>},
    {"cc", Address.name, "recipient of a copy", Fields, setAddress<Cc, &Msg::addCcRecipient>},
    {"bcc", Address.name, "recipient of a copy whom the others do not see", Fields,
     setAddress<Bcc, &Msg::addBccRecipient>},
    {"from", Address.name, "sender; without it the relay inserts the address", Fields,
     setAddress<From, &Msg::setFrom>},
    {"subject", "TEXT", "subject", Fields, setSubject},
    {"priority", "WORD", "low, normal or high", Fields,
     setNamed<Priority, &Msg::setPriority, QvlPriority::values>},
    {"class", "WORD", "personal, advertisement, informational or auto", Fields,
     setNamed<MessageClass, &Msg::setMessageClass, QvlMessageClass::values>},
    {"expiry", "TIME", "how long the relay keeps the message: 7d, 12h, 30m or 3600s", Fields,
     setExpiry},
    {"delivery-time", Moment.name, "earliest time of delivery", Fields,
     setDateTime<DeliveryTime, &Msg::setDeliveryTime>},
    {"delivery-report", nullptr, "ask for delivery reports", Fields,
     setFlag<DeliveryReport, &Msg::setDeliveryReport, true>},
    {"read-reply", nullptr, "ask for read reports", Fields,
     setFlag<ReadReply, &Msg::setReadReply, true>},
    // The encoder writes Show when the flag is set.
    {"hide-sender", nullptr, "do not show the sender's address to the recipients", Fields,
     setFlag<SenderVisibility, &Msg::setSenderVisibility, false>},
    {"transaction-id", "ID", "id of the transaction; the default is a new one", Fields,
     setTransactionId},
    {"date", Moment.name, "date of the message; the default is now", Fields,
     setDateTime<Date, &Msg::setDate>},
    {"max-size", "KB", "largest size of the message, in units of 1,024 octets (default 300)",
     Fields, setLimit},

    {"slide", nullptr,
     "begin a new slide; options of a slide apply to the last slide before them; the first text, "
     "image, video or audio begins a slide if there is none",
     Content, addSlide},
    {"attach", File.name, "add a file that is not on a slide", Content, addFile<&Composer::attach>},

    {"text", "TEXT", "text of the slide", Media, addText},
    {"text-file", File.name, "text of the slide, from a file in UTF-8", Media,
     addFile<&Composer::addTextFile>},
    {"image", File.name, "image of the slide", Media, addFile<addMedia<SMIL_MEDIA_IMAGE>>},
    {"video", File.name, "video of the slide, instead of an image", Media,
     addFile<addMedia<SMIL_MEDIA_VIDEO>>},
    {"audio", File.name, "audio of the slide", Media, addFile<addMedia<SMIL_MEDIA_AUDIO>>},
    {"duration", "TIME",
     "5s, 2500ms or 2.5; the default is the duration of the slide's clips, or 5 seconds", OfSlide,
     setDuration},
    {"background", Color.name, "color of the page", OfSlide, setColor<&Slide::setPageColor>},
    {"text-color", Color.name, "color of the text", OfSlide, setColor<&Slide::setTextColor>},
    {"text-size", "WORD", "small, normal or large", OfSlide, setTextSize},
    {"text-above", nullptr, "show the text above the picture", OfSlide, placeText<true>},
    {"text-below", nullptr, "show the text below the picture, which is the default", OfSlide,
     placeText<false>},
};

} // namespace

std::span<const ComposeOption> composeOptions()
{
    return options;
}

std::span<const ComposeValue> composeValues()
{
    return values;
}
