/*
 * Bodies: parses and assembles them by size, number of parts and with or without names. For
 * comparison allocates, fills and frees arrays of the same sizes. Also small messages, where names
 * and headers weigh more than the bodies.
 */
#include "subjects.h"
#include "support/benchmarks.h"
#include "support/messages.h"

#include <cstring>
#include <memory>
#include <vector>

namespace {

constexpr int sizes[] = {1000, 30'000, 300'000, 3'000'000};
constexpr int counts[] = {1, 10, 255};
constexpr int SmallPictures = 28'000; // octets
constexpr int SmallPictureCount = 8; // plus the presentation

std::string nameOf(const char *operation, int octets, int parts)
{
    return std::string(operation) + '/' + std::to_string(octets) + '/' + std::to_string(parts);
}

auto messageOf(int octets, int parts, Names names)
{
    auto message = std::make_shared<MMS_COMP_SMILMultipart>();
    addPictures(message.get(), parts, octets, names);
    return message;
}

auto parsing(int octets, int parts, Names names)
{
    const QByteArray body = assembled(messageOf(octets, parts, names).get());
    return Work{[body] {
                    MMS_UA_UAMsg header;
                    MMS_COMP_SMILMultipart message;
                    return MMS_COMP_SMILMultipartParser::parse(body, &header, &message)
                        == MultipartResult::Ok;
                },
                body.size()};
}

auto assembling(int octets, int parts, Names names)
{
    auto message = messageOf(octets, parts, names);
    const qint64 size = assembled(message.get()).size();
    return Work{[message] { return !assembled(message.get()).isEmpty(); }, size};
}

// As many relays deliver messages: without recipients, and with a presentation that has a
// Content-ID but no location.
QByteArray smallMessage(Names names)
{
    constexpr unsigned int recipients = headerFieldMask(HeaderFieldCode::To)
        | headerFieldMask(HeaderFieldCode::Cc) | headerFieldMask(HeaderFieldCode::Bcc);
    MMS_UA_UAMsg header;
    MMS_COMP_SMILMultipart message;
    auto smil = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    smil->setContentType(QStringLiteral("application"));
    smil->setContentSubType(QStringLiteral("smil"));
    if (names == Names::Given)
        smil->setContentID(QStringLiteral("<slides.smil>"));
    message.appendBodypart(smil.release());
    addPictures(&message, SmallPictureCount, SmallPictures, names);
    fillHeader(&header, QvlMessageType::RetrieveConf);
    header.setFieldsPresent(header.getFieldsPresent() & ~recipients);
    return encodedHeader(&header) + assembled(&message);
}

auto decodingMessage(Names names)
{
    const QByteArray pdu = smallMessage(names);
    return Work{[pdu] {
                    MMS_UA_UAMsg header;
                    MMS_COMP_SMILMultipart message;
                    return decodeHeader(pdu, &header)
                        && parseBody(header.getBodyOctets(), &header, &message);
                },
                pdu.size()};
}

auto copying(int octets, int parts)
{
    const auto size = size_t(octets / parts);
    using Array = std::unique_ptr<char[]>;
    auto copies = std::make_shared<std::vector<Array>>(size_t(parts));
    return Work{[source = QByteArray(octets, 'x'), copies, size] {
                    const char *from = source.constData();
                    for (Array &copy : *copies) {
                        copy.reset(new char[size]);
                        std::memcpy(copy.get(), from, size);
                        from += size;
                    }
                    benchmark::ClobberMemory();
                    for (Array &copy : *copies)
                        copy.reset();
                    return true;
                },
                octets};
}

} // namespace

void addMultipartBenchmarks()
{
    for (int octets : sizes) {
        for (int parts : counts) {
            addBenchmark(nameOf("parse/named", octets, parts),
                         [=] { return parsing(octets, parts, Names::Given); });
            addBenchmark(nameOf("parse/unnamed", octets, parts),
                         [=] { return parsing(octets, parts, Names::Missing); });
            addBenchmark(nameOf("assemble/named", octets, parts),
                         [=] { return assembling(octets, parts, Names::Given); });
            addBenchmark(nameOf("assemble/unnamed", octets, parts),
                         [=] { return assembling(octets, parts, Names::Missing); });
            addBenchmark(nameOf("reference/copy", octets, parts),
                         [=] { return copying(octets, parts); });
        }
    }
    addBenchmark("message/decode/named", [] { return decodingMessage(Names::Given); });
    addBenchmark("message/decode/nameless", [] { return decodingMessage(Names::Missing); });
    addBenchmark(nameOf("reference/copy", SmallPictures, SmallPictureCount),
                 [] { return copying(SmallPictures, SmallPictureCount); });
}
