/*
 * Length of iMelody ring tones: the sum of notes and rests.
 *
 * Everything except notes, rests and repeats takes no time and is skipped, whether command or
 * mistake.
 */
#include "platform/host/clip.h"

#include <QByteArray>
#include <QLatin1StringView>
#include <QStringTokenizer>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace HostPlatform {

namespace {

constexpr int SlowestBeat = 25; // quarter notes per minute
constexpr int FastestBeat = 900;
constexpr int DefaultBeat = 120;

// Parts of a full note: every duration with every specifier is a whole number of them.
constexpr int64_t FullNote = 384;
constexpr int64_t FullNoteAtOneBeat = 240'000; // milliseconds
constexpr int64_t PartAtOneBeat = FullNoteAtOneBeat / FullNote;
static_assert(PartAtOneBeat * FullNote == FullNoteAtOneBeat);

constexpr int64_t LongestTime = std::numeric_limits<int>::max(); // milliseconds
constexpr int64_t MostParts = LongestTime * FastestBeat / PartAtOneBeat + 1;

struct Specifier
{
    char character;
    int numerator;
    int denominator;
};

constexpr Specifier specifiers[] = {
    {'.', 3, 2}, // dotted
    {':', 7, 4}, // double dotted
    {';', 2, 3}, // three in the time of two
};

constexpr QLatin1StringView notesAndRest("abcdefgrABCDEFGR");

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// A melody, consumed character by character from its front.
class Melody
{
public:
    explicit Melody(QLatin1StringView text) : m_rest(text) { }

    /// Length in parts of a full note. Stops counting at MostParts.
    int64_t length();

private:
    /// The notes between parentheses.
    struct Repeat
    {
        bool isOpen = false;
        int64_t start = 0;
        int64_t times = 1;
    };

    char peek() const { return m_rest.isEmpty() ? '\0' : m_rest.front().toLatin1(); }
    char take();
    int64_t takeNumber();
    int64_t takeDuration();

    QLatin1StringView m_rest;
};

char Melody::take()
{
    const char taken = peek();
    m_rest = m_rest.mid(1);
    return taken;
}

int64_t Melody::takeNumber()
{
    int64_t number = 0;
    while (isDigit(peek()))
        number = std::min(number * 10 + (take() - '0'), MostParts);
    return number;
}

// A letter without a duration belongs to the name of a command.
int64_t Melody::takeDuration()
{
    const int halvings = peek() - '0';
    if (halvings < 0 || halvings > 5)
        return 0;
    std::ignore = take();
    const int64_t duration = FullNote >> halvings;
    const auto specifier = std::ranges::find(specifiers, peek(), &Specifier::character);
    if (specifier == std::end(specifiers))
        return duration;
    std::ignore = take();
    return duration * specifier->numerator / specifier->denominator;
}

// Repeats do not nest: a repeat within another replaces it, and the notes before it play once.
int64_t Melody::length()
{
    int64_t length = 0;
    Repeat repeat;
    while (!m_rest.isEmpty() && length < MostParts) {
        const char character = take();
        if (notesAndRest.contains(QLatin1Char(character))) {
            length += takeDuration();
        } else if (character == '(') {
            repeat = {true, length};
        } else if (character == '@' && repeat.isOpen && isDigit(peek())) {
            repeat.times = takeNumber();
        } else if (character == ')' && repeat.isOpen) {
            // Slides need an end, so an endless repeat ends after its first pass.
            if (repeat.times == 0)
                break;
            const int64_t pass = length - repeat.start;
            length = pass > (MostParts - repeat.start) / repeat.times
                ? MostParts
                : repeat.start + pass * repeat.times;
            repeat.isOpen = false;
        }
    }
    return length;
}

/// A line that begins with a blank continues the previous one.
QByteArray unfolded(Octets clip)
{
    QByteArray text(reinterpret_cast<const char *>(clip.data()), qsizetype(clip.size()));
    return text.replace("\r\n", "\n").replace("\n ", "").replace("\n\t", "");
}

std::optional<QLatin1StringView> valueOf(QLatin1StringView name, QLatin1StringView line)
{
    if (!line.startsWith(name, Qt::CaseInsensitive))
        return std::nullopt;
    return line.sliced(name.size());
}

int beatOf(QLatin1StringView value)
{
    const int beat = value.toInt();
    return beat < SlowestBeat || beat > FastestBeat ? DefaultBeat : beat;
}

int playLength(Octets clip)
{
    const QByteArray text = unfolded(clip);
    int beat = DefaultBeat;
    QLatin1StringView melody;
    for (const QLatin1StringView line : qTokenize(QLatin1StringView(text), u'\n')) {
        if (valueOf("END:IMELODY"_L1, line))
            break;
        if (const auto value = valueOf("BEAT:"_L1, line))
            beat = beatOf(*value);
        if (const auto value = valueOf("MELODY:"_L1, line))
            melody = *value;
    }
    const int64_t parts = Melody(melody).length();
    return int(std::min((parts * PartAtOneBeat + beat / 2) / beat, LongestTime));
}

} // namespace

Measure openImelody(Octets clip)
{
    const QLatin1StringView text(reinterpret_cast<const char *>(clip.data()),
                                 qsizetype(clip.size()));
    const QLatin1StringView start = text.trimmed();
    const QLatin1StringView firstLine = start.left(start.indexOf(u'\n')).trimmed();
    if (firstLine.compare("BEGIN:IMELODY"_L1, Qt::CaseInsensitive) != 0)
        return nullptr;
    return [clip] { return playLength(clip); };
}

} // namespace HostPlatform
