/*
 * Headers: decoding and encoding of every message type, and of a notification beside the reference,
 * a text of 16 characters that is made and destroyed.
 */
#include "subjects.h"
#include "support/benchmarks.h"
#include "support/messages.h"

#include <QString>

#include <memory>
#include <span>

namespace {

constexpr int NotificationOctets = 120;

// The record is made and destroyed too, as for every message that comes in.
auto decoding(const QByteArray &pdu)
{
    return Work{[pdu] {
                    MMS_UA_UAMsg header;
                    return decodeHeader(pdu, &header);
                },
                pdu.size()};
}

// Measures what the application calls, so the array is not copied.
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
        addBenchmark(std::string("header/encode/") + type.name,
                     [&type] { return encoding(headerOf(type)); });
    }
    addBenchmark("notification/decode",
                 [] { return decoding(notificationWithoutTime(NotificationOctets)); });
    addBenchmark("notification/decode with Expiry",
                 [] { return decoding(encodedHeader(notification().get())); });
    addBenchmark("notification/encode", [] { return encoding(notification()); });
    addBenchmark("notification/record", makingRecord);
    addBenchmark("reference/text", makingText);
}
