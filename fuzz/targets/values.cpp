/*
 * The readers of single values: WSP primitives, addresses, content types, times, durations and
 * colors. Values that were read are written, in as many octets as announced, and must read back the
 * same.
 */
#include "support/input.h"
#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <QByteArray>

namespace {

// Reads a value and, on success, writes it.
template <typename Codec, typename Value>
void readAndWrite(QByteArray octets)
{
    auto *data = reinterpret_cast<unsigned char *>(octets.data());
    LinearBuffer in = LinearBuffer::forReading(data, int(octets.size()));
    Value value{};
    if (Codec::readFrom(&in, &value) != WireResult::Read)
        return;
    const int size = Codec::sizeOf(value);
    require(size >= 0, "a size is not negative");
    QByteArray written(size + 16, '\0');
    LinearBuffer out(reinterpret_cast<unsigned char *>(written.data()), int(written.size()));
    Codec::writeTo(&out, value);
    require(out.getPosition() == size, "a value has the announced size");
}

using Reader = void (*)(QByteArray octets);

constexpr Reader readers[] = {
    readAndWrite<IntegerBinary, int>,           readAndWrite<ValueLengthBinary, int>,
    readAndWrite<TimeBinary, QDateTime>,        readAndWrite<PlainTextBinary, QString>,
    readAndWrite<EncodedStringBinary, QString>, readAndWrite<AddressBinary, MMS_UTIL_Entry>,
};

void readUnsigned(QByteArray octets)
{
    auto *data = reinterpret_cast<unsigned char *>(octets.data());
    LinearBuffer in = LinearBuffer::forReading(data, int(octets.size()));
    int value = 0;
    if (UIntBinary::readFrom(&in, &value) != WireResult::Read || value < 0)
        return;
    QByteArray written(UIntBinary::sizeOf(value), '\0');
    LinearBuffer out(reinterpret_cast<unsigned char *>(written.data()), int(written.size()));
    UIntBinary::writeTo(&out, value);
    LinearBuffer back = LinearBuffer::forReading(
        reinterpret_cast<const unsigned char *>(written.constData()), int(written.size()));
    int again = 0;
    require(UIntBinary::readFrom(&back, &again) == WireResult::Read && again == value,
            "a uintvar is read back unchanged");
}

void readTexts(const QString &text)
{
    MMS_COMP_SMIL_TIME time;
    MMS_COMP_SMILParser::parseTime(text, &time);
    require(time.timeType >= SMIL_TIME_OFFSET && time.timeType <= SMIL_TIME_INVALID,
            "a time is of a known kind");
    MMS_COMP_SMILParser::parseDur(text);
    MMS_COMP_COLOR color;
    MMS_COMP_SMILParser::parseColor(text, color);
    require(!color.isUsable() || color.color.isValid(), "a color that was understood is one");
    MMS_COMP_SMILMultipart::isCidEqual(text, text);
    MMS_COMP_SMILMultipart::parseCid(text);
    MMS_COMP_Util::getExtName(text);
    MMS_COMP_SMILMultipartParser::parseStart(text);
    MMS_COMP_SMILMultipartParser::parseExtType(text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    const auto choice = input.number<std::size_t>(0, std::size(readers) + 1);
    const QByteArray octets = input.rest();
    if (choice < std::size(readers))
        readers[choice](octets);
    else if (choice == std::size(readers))
        readUnsigned(octets);
    else
        readTexts(QString::fromUtf8(octets));
    return 0;
}
