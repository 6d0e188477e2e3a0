/*
 * Headers: decodes, scans and encodes every message type, decodes and encodes single fields and a
 * notification. For comparison creates and destroys a text of 16 characters.
 */
#include "subjects.h"
#include "support/benchmarks.h"
#include "support/messages.h"

#include <QString>

#include <memory>
#include <span>
#include <vector>

namespace {

constexpr int NotificationOctets = 120;

// Includes creating and destroying the record, as for every received message.
auto decoding(const QByteArray &pdu)
{
    return Work{[pdu] {
                    MMS_UA_UAMsg header;
                    return decodeHeader(pdu, &header);
                },
                pdu.size()};
}

auto scanning(const QByteArray &pdu)
{
    return Work{[pdu] {
                    QvlHeaderScanner scanner(pdu);
                    QvlScannedField field;
                    while (scanner.next(&field))
                        benchmark::DoNotOptimize(field);
                    return scanner.isComplete();
                },
                pdu.size()};
}

auto scanningWithValues(const QByteArray &pdu)
{
    return Work{[pdu] {
                    QvlHeaderScanner scanner(pdu);
                    QvlScannedField field;
                    bool isReadable = true;
                    while (scanner.next(&field))
                        isReadable = field.decoded().isReadable && isReadable;
                    return isReadable && scanner.isComplete();
                },
                pdu.size()};
}

auto preparing(const QByteArray &pdu)
{
    return Work{[pdu] { return QvlReadablePdu(pdu).changes().empty(); }, pdu.size()};
}

// Measures the operation that applications call; does not copy the array.
auto encoding(std::shared_ptr<MMS_UA_UAMsg> header)
{
    const qint64 size = encodedHeader(header.get()).size();
    return Work{[header] {
                    unsigned char *octets = nullptr;
                    int length = 0;
                    const auto result =
                        MMS_UA_Encoder().encodeHeader(header.get(), &octets, &length);
                    const std::unique_ptr<unsigned char[]> owner(octets);
                    return result == WireResult::Written;
                },
                size};
}

auto headerOf(const MessageTypeInfo &type)
{
    auto header = std::make_shared<MMS_UA_UAMsg>();
    fillHeader(header.get(), type.type);
    return header;
}

auto notification()
{
    auto header = std::make_shared<MMS_UA_UAMsg>();
    fillNotification(header.get(), NotificationOctets);
    return header;
}

// Asks for the size first, as the encoder does. True when the field was written.
bool writeField(const HeaderFieldInfo &field, MMS_UA_UAMsg *header,
                std::vector<unsigned char> *octets)
{
    octets->resize(size_t(field.codec->fieldSize(header)));
    LinearBuffer buffer(octets->data(), int(octets->size()));
    return field.codec->writeField(&buffer, header) == WireResult::Written;
}

auto writingField(const HeaderFieldInfo &field)
{
    auto octets = std::make_shared<std::vector<unsigned char>>();
    return Work{[&field, octets, header = headerOf(*messageTypeInfo(QvlMessageType::SendReq))] {
        return writeField(field, header.get(), octets.get());
    }};
}

// Creates a new record each time, because reading adds recipients to the existing ones.
auto readingField(const HeaderFieldInfo &field)
{
    std::vector<unsigned char> octets;
    writeField(field, headerOf(*messageTypeInfo(QvlMessageType::SendReq)).get(), &octets);
    return Work{[&field, octets] {
        constexpr int codeOctets = 1;
        auto value =
            LinearBuffer::forReading(octets.data() + codeOctets, int(octets.size()) - codeOctets);
        MMS_UA_UAMsg header;
        return field.codec->readField(&value, &header) == WireResult::Read;
    }};
}

auto makingRecord()
{
    return Work{[] {
        const MMS_UA_UAMsg header;
        return header.getFieldsPresent() == 0;
    }};
}

auto makingText()
{
    return Work{[octets = QByteArray("sixteen letters.")] {
        const QString text = QString::fromLatin1(octets);
        benchmark::DoNotOptimize(text.constData());
        return true;
    }};
}

} // namespace

void addHeaderBenchmarks()
{
    for (const MessageTypeInfo &type : messageTypes()) {
        addBenchmark(std::string("header/decode/") + type.name,
                     [&type] { return decoding(encodedHeader(headerOf(type).get())); });
        addBenchmark(std::string("header/scan/") + type.name,
                     [&type] { return scanning(encodedHeader(headerOf(type).get())); });
        addBenchmark(std::string("header/values/") + type.name,
                     [&type] { return scanningWithValues(encodedHeader(headerOf(type).get())); });
        addBenchmark(std::string("header/prepare/") + type.name,
                     [&type] { return preparing(encodedHeader(headerOf(type).get())); });
        addBenchmark(std::string("header/encode/") + type.name,
                     [&type] { return encoding(headerOf(type)); });
    }
    for (const HeaderFieldInfo &field : headerFields()) {
        addBenchmark(std::string("field/read/") + field.name,
                     [&field] { return readingField(field); });
        addBenchmark(std::string("field/write/") + field.name,
                     [&field] { return writingField(field); });
    }
    addBenchmark("notification/decode",
                 [] { return decoding(encodedHeader(notification().get())); });
    addBenchmark("notification/encode", [] { return encoding(notification()); });
    addBenchmark("notification/record", makingRecord);
    addBenchmark("reference/text", makingText);
}
