#include "check/rules.h"

#include <algorithm>
#include <array>

namespace Check {

namespace {

using enum Severity;

constexpr std::array table{
    RuleText{Rule::NoMessage, Error, "no-message", "a file that does not begin like a message",
             "receivers cannot read it",
             "name a file with a whole message, without headers of HTTP or WSP before it"},
    RuleText{Rule::HeaderRefused, Error, "header-refused", "a header that cannot be decoded",
             "receivers refuse the message", "write the field as the standard says"},
    RuleText{Rule::WrongVersion, Error, "wrong-version",
             "no version, or a major version other than 1", "receivers refuse the message",
             "write version 1.0 to 1.3"},
    RuleText{Rule::LaterVersion, Note, "later-version", "a minor version above 0",
             "handsets of MMS 1.0 read it, too, but not its new fields", "nothing has to be done"},
    RuleText{Rule::UnknownType, Error, "unknown-type", "a message type that no version has",
             "receivers ignore or refuse the message", "write a type of the standard"},
    RuleText{Rule::MissingField, Error, "missing-field",
             "a mandatory field of the message type that is missing",
             "relays and handsets refuse the message", "add the field"},
    RuleText{Rule::FieldOrder, Error, "field-order", "a field that is not at its place",
             "some relays and handsets refuse the message",
             "write Message-Type, Transaction-Id and MMS-Version first and Content-Type last"},
    RuleText{Rule::LaterField, Note, "later-field",
             "a field that a later version than the message's introduced",
             "receivers of that version ignore it, and some refuse the message",
             "leave it out, or write the version that has it"},
    RuleText{Rule::UnknownField, Note, "unknown-field",
             "a field without a code, or with a code that no version has",
             "receivers ignore it, and some refuse the message",
             "leave it out unless a receiver needs it"},
    RuleText{Rule::RepeatedField, Warning, "repeated-field",
             "a second field of a kind that may occur once",
             "some receivers take the first one and some the last", "leave one of them out"},
    RuleText{Rule::MalformedField, Error, "malformed-field", "a field whose value is malformed",
             "receivers lose the field or refuse the message",
             "write the value as the standard says"},
    RuleText{Rule::UnknownValue, Warning, "unknown-value",
             "a field whose value no version has, such as a priority besides low, normal and high",
             "receivers take another value in its place or refuse the message",
             "write a value of the standard"},
    RuleText{
        Rule::HeaderForm, Warning, "header-form",
        "a field in a form that some handsets of MMS 1.0 do not read, or octets that are no field",
        "these handsets refuse the message", "write the simplest form"},
    RuleText{Rule::NoRecipient, Error, "no-recipient", "a message to send without To, Cc and Bcc",
             "the relay refuses the message", "add a recipient"},
    RuleText{Rule::EmptyRecipient, Error, "empty-recipient", "a recipient without an address",
             "the relay refuses the message", "leave the field out"},
    RuleText{Rule::HeaderCharset, Warning, "header-charset",
             "a text in the header that is not in its declared charset, or that has octets above "
             "7F without a charset",
             "receivers show other characters", "declare UTF-8 and write it"},
    RuleText{Rule::BodyRefused, Error, "body-refused", "a body that cannot be divided into parts",
             "receivers lose parts or refuse the message",
             "send the message again; it may be incomplete"},
    RuleText{Rule::NoParts, Warning, "no-parts", "a body without parts", "receivers show nothing",
             "add a part, or write a message type without a body"},
    RuleText{Rule::ExtraOctets, Warning, "extra-octets", "octets after the last part",
             "receivers ignore them or refuse the message",
             "count all parts, and end the message after the last one"},
    RuleText{Rule::PartForm, Note, "part-form", "a part in a form that old handsets do not read",
             "old handsets lose the part or its name", "write the form of MMS 1.0"},
    RuleText{Rule::TooManyParts, Error, "too-many-parts", "more than 127 parts",
             "receivers read another number of parts", "use fewer parts"},
    RuleText{Rule::TooLarge, Error, "too-large", "a message above the limit, see --limit",
             "the relay or the handset refuses the message",
             "make its largest part smaller or leave it out"},
    RuleText{Rule::EmptyPart, Warning, "empty-part", "a part without content",
             "receivers show nothing in its place", "leave the part out"},
    RuleText{Rule::SameName, Error, "same-name",
             "two parts with the same Content-Location or Content-ID, apart from case and brackets",
             "receivers show one of them in place of the other", "name each part differently"},
    RuleText{Rule::NoName, Warning, "no-name",
             "a part without a Content-Location, a Content-ID and a file name",
             "no presentation can show it", "name the part"},
    RuleText{Rule::UnsafeName, Warning, "unsafe-name",
             "a name with a character that file systems do not allow, or that begins with a point "
             "or a hyphen",
             "some handsets cannot save the part",
             "use letters, digits, hyphens, underscores and points"},
    RuleText{Rule::LongName, Warning, "long-name", "a name of more than 100 octets",
             "some handsets cut it off and do not find the part", "use a shorter name"},
    RuleText{Rule::ForeignName, Warning, "foreign-name", "a name that is not ASCII",
             "some handsets read other characters and do not find the part", "use ASCII only"},
    RuleText{Rule::BareContentId, Warning, "bare-content-id", "a Content-ID without angle brackets",
             "some receivers do not find the part", "write angle brackets around the Content-ID"},
    RuleText{Rule::TextCharset, Warning, "text-charset",
             "a text part that is not in its declared charset, or that has octets above 7F without "
             "a charset",
             "receivers show other characters", "declare UTF-8 and write it"},
    RuleText{Rule::WrongType, Warning, "wrong-type",
             "a media type that contradicts the content of the part",
             "receivers that rely on the type do not show the part", "declare the real type"},
    RuleText{Rule::BrokenPicture, Error, "broken-picture",
             "a picture that cannot be decoded, or that ends too early",
             "receivers show it in part or not at all", "save the picture again"},
    RuleText{Rule::LargePicture, Warning, "large-picture",
             "a picture of too many pixels to be decoded", "handsets have no memory for it",
             "make the picture smaller"},
    RuleText{Rule::NoClipLength, Warning, "no-clip-length",
             "a sound or video whose length cannot be measured",
             "receivers may not play it, or end the slide too early",
             "save it as AMR, 3GP or another format of handsets"},
    RuleText{Rule::NoSlides, Note, "no-slides",
             "a message with parts and no presentation, or none with slides",
             "each receiver chooses what it shows together", "add slides in SMIL"},
    RuleText{Rule::SmilRefused, Error, "smil-refused",
             "SMIL that is not well-formed, or whose head and body are not as the standard says",
             "receivers show no slides", "correct the SMIL"},
    RuleText{Rule::InvalidXml, Warning, "invalid-xml",
             "SMIL that the handset reads and XML does not allow", "other receivers show no slides",
             "correct the SMIL"},
    RuleText{Rule::SkippedElement, Warning, "skipped-element",
             "an element of the SMIL that the handset does not know, or not at that place",
             "its content is not shown", "use the elements of the MMS profile of SMIL"},
    RuleText{Rule::MissingPart, Error, "missing-part",
             "a reference in the SMIL that no part has as its name",
             "receivers show nothing in its place", "add the part or correct the reference"},
    RuleText{Rule::OtherSpelling, Warning, "other-spelling",
             "a reference in the SMIL that is spelled in another way than the name of its part",
             "receivers that compare the octets show nothing in its place",
             "write the name as the part has it"},
    RuleText{Rule::UnusedPart, Note, "unused-part", "a part that no slide refers to",
             "receivers show it as an attachment or not at all",
             "refer to it in a slide unless it is an attachment"},
    RuleText{
        Rule::SmallRegion, Warning, "small-region",
        "a picture or video that is larger than its region and is neither scaled nor scrolled, "
        "or a region without room for a line of text",
        "receivers cut it off", "make the region larger or write fit=\"meet\""},
    RuleText{Rule::ZeroDuration, Warning, "zero-duration", "a slide or medium that lasts no time",
             "receivers skip it or show it for a moment", "write a longer duration"},
    RuleText{Rule::UnreadableDuration, Warning, "unreadable-duration",
             "a duration of a slide or medium that is no time of SMIL",
             "each receiver chooses another duration", "write a number of seconds such as 5s"},
};
static_assert(table.size() == std::size_t(Rule::UnreadableDuration) + 1
                  && std::ranges::is_sorted(table, {}, &RuleText::rule),
              "a row stands at its place");

} // namespace

QLatin1StringView nameOf(Severity severity)
{
    constexpr std::array names{"note", "warning", "error"};
    return QLatin1StringView(names[std::size_t(severity)]);
}

std::span<const RuleText> rules()
{
    return table;
}

const RuleText &textOf(Rule rule)
{
    return table[std::size_t(rule)];
}

const RuleText *findRule(QStringView id)
{
    const auto found = std::ranges::find_if(
        table, [id](const RuleText &text) { return id == QLatin1StringView(text.id); });
    return found != table.end() ? &*found : nullptr;
}

} // namespace Check
