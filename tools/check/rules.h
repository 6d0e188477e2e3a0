/*
 * The rules by which a message is checked: one table for the command, its help and its page.
 */
#pragma once

#include <QLatin1StringView>

#include <span>

namespace Check {

/// How bad a problem is.
enum class Severity : unsigned char {
    Note, ///< worth knowing
    Warning, ///< some receivers refuse or lose something
    Error, ///< receivers refuse or lose something
};

/// "note", "warning" or "error".
QLatin1StringView nameOf(Severity severity);

/// The rules, in the order of a message: header, body, names, content, presentation.
enum class Rule : unsigned char {
    NoMessage,
    HeaderRefused,
    WrongVersion,
    LaterVersion,
    UnknownType,
    MissingField,
    FieldOrder,
    LaterField,
    UnknownField,
    RepeatedField,
    MalformedField,
    UnknownValue,
    HeaderForm,
    NoRecipient,
    EmptyRecipient,
    HeaderCharset,
    BodyRefused,
    NoParts,
    ExtraOctets,
    PartForm,
    TooManyParts,
    TooLarge,
    EmptyPart,
    SameName,
    NoName,
    UnsafeName,
    LongName,
    ForeignName,
    BareContentId,
    TextCharset,
    WrongType,
    BrokenPicture,
    LargePicture,
    NoClipLength,
    NoSlides,
    SmilRefused,
    InvalidXml,
    SkippedElement,
    MissingPart,
    OtherSpelling,
    UnusedPart,
    SmallRegion,
    ZeroDuration,
    UnreadableDuration,
};

/// What is said of every problem that a rule finds.
struct RuleText
{
    Rule rule;
    Severity severity;
    const char *id; ///< for programs and --explain
    const char *finds; ///< what the rule finds
    const char *hurts; ///< whom it hurts and how: a clause
    const char *remedy; ///< what to do: a clause
};

/// All rules, each at its place.
std::span<const RuleText> rules();

/// The text of @p rule.
const RuleText &textOf(Rule rule);

/// The rule with @p id; null when there is none.
const RuleText *findRule(QStringView id);

} // namespace Check
