/*
 * Readers of single values: octets of the wire, and times, durations and colors of SMIL.
 */
#include "subjects.h"
#include "support/benchmarks.h"

#include <qvlsmilparser.h>

#include <QByteArray>

namespace {

template <typename Codec, typename Value>
void addReader(const char *name, const QByteArray &octets)
{
    addBenchmark(std::string("value/") + name, [octets] {
        return Work{[octets] {
                        const auto *data =
                            reinterpret_cast<const unsigned char *>(octets.constData());
                        auto buffer = LinearBuffer::forReading(data, int(octets.size()));
                        Value value{};
                        return Codec::readFrom(&buffer, &value) == WireResult::Read;
                    },
                    octets.size()};
    });
}

// Reads in place; readers of whole texts copy.
void addBufferRead()
{
    addBenchmark("value/octets", [] {
        const QByteArray octets(1000, 'x');
        return Work{[octets] {
                        const auto *data =
                            reinterpret_cast<const unsigned char *>(octets.constData());
                        auto buffer = LinearBuffer::forReading(data, int(octets.size()));
                        unsigned char octet = 0;
                        while (buffer.hasMore())
                            buffer.readByte(&octet);
                        return octet == 'x';
                    },
                    octets.size()};
    });
}

void addTime(const char *name, const char *text)
{
    addBenchmark(std::string("value/time ") + name, [text = QString::fromLatin1(text)] {
        return Work{[text] {
                        MMS_COMP_SMIL_TIME time;
                        MMS_COMP_SMILParser::parseTime(text, &time);
                        return time.timeType != SMIL_TIME_INVALID;
                    },
                    text.size()};
    });
}

void addDuration(const char *text)
{
    addBenchmark(std::string("value/duration ") + text, [text = QString::fromLatin1(text)] {
        return Work{[text] { return MMS_COMP_SMILParser::parseDur(text) > 0; }, text.size()};
    });
}

void addColor(const char *text)
{
    addBenchmark(std::string("value/color ") + text, [text = QString::fromLatin1(text)] {
        return Work{[text] {
                        MMS_COMP_COLOR color;
                        MMS_COMP_SMILParser::parseColor(text, color);
                        return color.isUsable();
                    },
                    text.size()};
    });
}

} // namespace

void addValueBenchmarks()
{
    addReader<IntegerBinary, int>("short integer", "\xEA");
    addReader<IntegerBinary, int>("long integer", QByteArray("\x04\x40\xF8\x12\x34"));
    addReader<UIntBinary, int>("uintvar", QByteArray("\x8F\xFF\x7F"));
    addReader<ValueLengthBinary, int>("value-length", QByteArray("\x1F\x8F\x7F"));
    addReader<TimeBinary, QDateTime>("absolute time", QByteArray("\x06\x80\x04\x40\xF8\x12\x34"));
    addReader<PlainTextBinary, QString>("plain text", QByteArray("sixteen letters.\0", 17));
    addReader<EncodedStringBinary, QString>("encoded text",
                                            QByteArray("\x12\xEA"
                                                       "sixteen letters.\0",
                                                       19));
    addReader<AddressBinary, MMS_UTIL_Entry>("address",
                                             QByteArray("+4915187654321/TYPE=PLMN\0", 25));
    addBufferRead();

    addTime("offset", "2500ms");
    addTime("event", "id(picture)(end)");
    addDuration("4s");
    addDuration("2500ms");
    addDuration("01:30.250");
    addColor("navy");
    addColor("#102030");
}
