/*
 * Memory runs out while a message passes through the library. The results report the failure, or
 * the output is the same as without it.
 */
#include "faults/each_allocation.h"
#include "faults/outputs.h"
#include "message/message.h"
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "presentation/presentation.h"
#include "presentation/smil_result.h"
#include "scan/charset_text.h"
#include "scan/header_scanner.h"
#include "scan/part_scanner.h"
#include "smil/smil_parser.h"
#include "support/pdu_writer.h"
#include "wire/header_decoder.h"
#include "wire/header_encoder.h"
#include "wire/header_fields.h"
#include "wire/time_zone.h"
#include "wire/wire_result.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QIODevice>

#include <gtest/gtest.h>

#include <array>
#include <span>
#include <sstream>
#include <string>

using namespace PduWriter;

namespace {

QByteArray fixture(const char *folder, const char *name)
{
    QFile file(
        QStringLiteral(QVL_FIXTURES "/%1/%2").arg(QLatin1String(folder), QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Receives and sends a message with the classes of each layer. The texts that a caller needs are
/// created before anything fails.
class Journey : public Work
{
public:
    explicit Journey(const QByteArray &pdu) : m_pdu(pdu.constData(), pdu.size())
    {
        m_stored.open(QIODevice::ReadWrite);
        m_stored.write(QByteArray(10000, '\0')); // room that is there
    }

    bool go() override;

private:
    bool receive(MMS_UA_UAMsg *header, Multipart *body, MMS_COMP_SMILData *slides);
    bool edit(Multipart *body, MMS_COMP_SMILData *slides) const;
    bool store(MMS_COMP_SMILData *slides);
    bool send(MMS_UA_UAMsg *header, Multipart *body, MMS_COMP_SMILData *slides);

    QByteArray m_pdu;
    QBuffer m_stored;
    QDataStream m_stream{&m_stored};
    QString m_region = QStringLiteral("text");
    QString m_name = QString::fromLatin1("added.txt");
    QString m_subType = QStringLiteral("plain");
    QByteArray m_text = QByteArray("text");
};

bool Journey::receive(MMS_UA_UAMsg *header, Multipart *body, MMS_COMP_SMILData *slides)
{
    if (MMS_UA_Decoder().decodeHeader(m_pdu, header) != WireResult::Read)
        return false;
    body->setMimeType(header->getContentType());
    body->setSubType(header->getContentSubType());
    if (MMS_COMP_SMILMultipartParser::parse(header->getBodyOctets(), header, body)
        != MultipartResult::Ok)
        return false;
    if (const auto *smil = body->getSmilPart())
        return MMS_COMP_SMILParser().parse(smil->getBodyData(), body, slides) == SmilResult::Ok;
    return MMS_COMP_SMILParser::makeSmilForMixed(body, slides, true) == 1;
}

bool Journey::edit(Multipart *body, MMS_COMP_SMILData *slides) const
{
    auto *slide = slides->appendSlide(1000u);
    const QString src = slides->createUniqueSrc(m_name);
    return slide && !src.isEmpty()
        && slide->updateData(m_region, src, SMIL_MEDIA_TEXT, m_subType, m_text, true, body);
}

bool Journey::store(MMS_COMP_SMILData *slides)
{
    m_stored.seek(0);
    slides->getSlide(slides->getTotalSlidesNum() - 1)->writeToStream(m_stream);
    m_stored.seek(0);
    MMS_COMP_SMILTimingContainer read(nullptr);
    return read.readFromStream(m_stream);
}

bool Journey::send(MMS_UA_UAMsg *header, Multipart *body, MMS_COMP_SMILData *slides)
{
    slides->removeEmptyTextBeforeSend();
    const QString smil = MMS_COMP_SMILParser::convertToSMILLang(slides);
    const QByteArray octets = MMS_COMP_SMILMultipartParser::assembleBody(body, header);
    QByteArray encoded;
    if (MMS_UA_Encoder().encodeHeader(header, &encoded) != WireResult::Written || smil.isEmpty()
        || octets.isEmpty())
        return false;
    keep([&] {
        return Outputs::of(*header) + Outputs::of(*body)
            + Outputs::line("sent", encoded, octets, smil, m_stored.data());
    });
    return true;
}

bool Journey::go()
{
    MMS_UA_UAMsg header;
    Multipart body;
    MMS_COMP_SMILData slides(&body);
    const bool isWhole = slides.getRootLayout() && slides.getMultiPart();
    return isWhole && receive(&header, &body, &slides) && edit(&body, &slides) && store(&slides)
        && send(&header, &body, &slides);
}

/// Receives, presents, stores and encodes a message in one object.
class Reception : public Work
{
public:
    explicit Reception(const QByteArray &pdu) : m_pdu(pdu) { }

    bool go() override;

private:
    QByteArray m_pdu;
};

using Texts = std::array<QString, 4>; // of the parts

bool takeTexts(const QvlMessage &message, Texts *texts)
{
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        QString &text = texts->at(size_t(i));
        text = message.text(*message.parts().getBodypartByIndex(i));
        if (text.isNull())
            return false;
    }
    return true;
}

bool Reception::go()
{
    QvlMessage message;
    Texts texts;
    if (!message.receive(m_pdu).isOk() || !takeTexts(message, &texts))
        return false;
    const QvlSentTimes times = message.sentTimes();
    const bool isPresented = message.present().isOk();
    const unsigned int slides = message.slides().getTotalSlidesNum();
    const bool isPresentedAgain = message.present().isOk();
    QByteArray octets;
    const bool isWhole = isPresented && message.storeSlides() && message.encode(&octets).isOk();
    const UncountedAllocations pause;
    EXPECT_EQ(isPresentedAgain, isPresented);
    EXPECT_EQ(message.slides().getTotalSlidesNum(), slides);
    EXPECT_TRUE(isWhole || octets.isEmpty());
    if (!isWhole)
        return false;
    keep([&] { // the SMIL part has the slides
        return Outputs::of(message.header()) + Outputs::of(message.parts())
            + Outputs::of(message.slides()) + Outputs::of(message.changes()) + Outputs::of(times)
            + Outputs::line("texts", texts) + Outputs::line("sent", octets);
    });
    return true;
}

/// Composes a message in one object, with an attachment that has the name of the slide's text.
class Composition : public Work
{
public:
    Composition() { m_attachment->setContentLocation(m_name); }

    bool go() override;

private:
    QString m_region = QStringLiteral("text");
    QString m_name = QStringLiteral("a.txt");
    QString m_subType = QStringLiteral("plain");
    QByteArray m_text = "text";
    QString m_location = QStringLiteral("slides.smil");
    std::unique_ptr<Part> m_attachment = std::make_unique<Part>();
};

bool Composition::go()
{
    QvlMessage message;
    message.parts().appendBodypart(m_attachment.release());
    auto *slide = message.slides().appendSlide(1000u);
    const QString src = message.slides().createUniqueSrc(m_name);
    if (!slide || src.isNull() || message.parts().getPartCount() != 1
        || !slide->updateData(m_region, src, SMIL_MEDIA_TEXT, m_subType, m_text, true,
                              &message.parts()))
        return false;
    QByteArray octets;
    if (!message.storeSlides(m_location) || !message.encode(&octets).isOk())
        return false;
    keep([&] {
        return Outputs::of(message.header()) + Outputs::of(message.parts())
            + Outputs::line("sent", octets);
    });
    return true;
}

/// Prepares a PDU for the decoder.
class Preparation : public Work
{
public:
    explicit Preparation(const QByteArray &pdu) : m_pdu(pdu) { }

    bool go() override
    {
        const QvlReadablePdu readable(m_pdu);
        MMS_UA_UAMsg header;
        if (readable.decodeHeader(&header) != WireResult::Read)
            return false;
        const QByteArray whole = readable.pdu();
        if (whole.isNull())
            return false;
        keep([&] {
            return Outputs::of(header) + Outputs::of(readable.changes())
                + Outputs::line("pdu", whole, readable.bodyOffset());
        });
        return true;
    }

private:
    QByteArray m_pdu;
};

/// Scans a header and decodes every field, then the parts and every header of theirs.
class Scan : public Work
{
public:
    explicit Scan(const QByteArray &pdu) : m_pdu(pdu) { }

    bool go() override
    {
        const QvlSentTimes times = qvlSentTimes(m_pdu);
        QvlHeaderScanner scanner(m_pdu);
        QvlScannedField field;
        while (scanner.next(&field)) {
            if (!take(field.decoded()))
                return false;
        }
        QvlPartScanner parts(QByteArrayView(m_pdu).sliced(scanner.position()));
        QvlScannedPart part;
        while (parts.next(&part)) {
            if (!take(part.contentType()) || !takeHeaders(part))
                return false;
        }
        keep([&] { return m_texts + Outputs::of(times) + scanner.meaning() + parts.meaning(); });
        return true;
    }

private:
    template <typename... Values>
    void append(const Values &...values)
    {
        const UncountedAllocations pause;
        m_texts += Outputs::line("value", values...);
    }

    bool take(const QvlScannedValue &value)
    {
        append(value.token, value.count, value.number, value.charset, value.text);
        return value.isReadable;
    }

    bool take(const std::optional<QvlContentType> &type)
    {
        if (type)
            append(type->mediaType, type->charset(), type->parameters.size(), type->isComplete);
        return type.has_value();
    }

    bool takeHeaders(const QvlScannedPart &part)
    {
        QvlPartHeaderScanner headers(part.headers);
        QvlScannedHeader header;
        while (headers.next(&header)) {
            const QString text = header.text();
            append(header.code, text);
            if (text.isNull())
                return false;
        }
        return true;
    }

    QByteArray m_pdu;
    std::string m_texts;
};

// The output without the part of the sound, which counts as shown or not, and without what depends
// on its slide, which goes to @p soundSlide.
std::string withoutSound(const std::string &output, std::string *soundSlide)
{
    std::string rest;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("slide ") && line.ends_with(" audio sound.mp3"))
            *soundSlide = line;
        else if (!line.starts_with("sent ") && !line.starts_with("part \"application/smil\"")
                 && !line.starts_with("part \"audio/mpeg\""))
            rest += line + '\n';
    }
    return rest;
}

// The interface of the player engine has no result for a lack of memory. A sound that gets none
// counts as one that cannot be played, or whose length is unknown.
bool isSoundUnknown(const std::string &output, const std::string &undisturbed)
{
    std::string soundSlide;
    std::string undisturbedSlide;
    return withoutSound(output, &soundSlide) == withoutSound(undisturbed, &undisturbedSlide)
        && (soundSlide.empty() || soundSlide == "slide 5000: audio sound.mp3")
        && undisturbedSlide == "slide 1000: audio sound.mp3";
}

constexpr quint64 July2004 = 1'090'000'000;
constexpr int Windows1251 = 2251;
constexpr int Latin1 = 4;
const QByteArray Privet = "EF F0 E8 E2 E5 F2"_octets; // in windows-1251

/// The header of an m-send-req of MMS 1.3 up to Content-Type.
QByteArray laterHeader(const QByteArray &contentType)
{
    return field(12, token(QvlMessageType::SendReq)) + field(24, text("T-1234567890123456789"))
        + field(13, integer(0x13)) + field(5, date(July2004)) + field(9, insertAddress())
        + field(23, text("+4915187654321/TYPE=PLMN"))
        + field(23, encodedText(Windows1251, Privet + text("@example.org")))
        + field(22, encodedText(Windows1251, text(Privet))) + field(8, relativeTime(604800))
        + field(7, absoluteTime(July2004)) + field(58, token(129)) // Content-Class
        + field(4, contentType);
}

/// A text in a charset that is not UTF-8, one in base64, and a sound.
QByteArray laterParts(const QByteArray &first = {})
{
    const QByteArray inCyrillic = part(generalType(mediaCode(3), field(1, integer(Windows1251))),
                                       field(14, text("privet.txt")), Privet);
    const QByteArray inBase64 = part(
        generalType(mediaCode(3), field(1, integer(Latin1))),
        field(14, text("eacute.txt")) + fieldInLetters("Content-Transfer-Encoding", text("base64")),
        "4Q==");
    const QByteArray sound =
        part(text("audio/mpeg"), field(14, text("sound.mp3")), fixture("clips", "sound.mp3"));
    QList<QByteArray> parts{inCyrillic, inBase64, sound};
    if (!first.isEmpty())
        parts.prepend(first);
    return body(parts);
}

QByteArray laterMixedMessage()
{
    return laterHeader(text("multipart/mixed")) + laterParts();
}

QByteArray laterRelatedMessage()
{
    const QByteArray smil =
        part(text("application/smil"), field(64, quotedString("<start>")),
             "<smil><head><layout><region id=\"Text\" width=\"120\" height=\"80\"/></layout></head>"
             "<body><par dur=\"3s\"><text src=\"privet.txt\" region=\"Text\">"
             "<param name=\"foreground-color\" value=\"#ff0000\"/></text><audio "
             "src=\"sound.mp3\"/></par>"
             "</body></smil>");
    return laterHeader(generalType(text("multipart/related"),
                                   fieldInLetters("start", text("<start>"))
                                       + fieldInLetters("type", text("application/smil"))))
        + laterParts(smil);
}

struct Message
{
    const char *name;
    QByteArray (*pdu)();
    Accepts accepts = nullptr;
};

void PrintTo(const Message &message, std::ostream *out)
{
    *out << message.name;
}

std::string nameOf(const testing::TestParamInfo<Message> &message)
{
    return message.param.name;
}

// The decoder alone reads the first two, which are of MMS 1.0.
const Message messages[] = {
    {"related", [] { return fixture("messages", "related.mms"); }},
    {"mixed", [] { return fixture("messages", "mixed.mms"); }},
    {"laterRelated", laterRelatedMessage},
    {"laterMixed", laterMixedMessage, isSoundUnknown},
};

class NoMemoryForMessages : public testing::TestWithParam<Message>
{
protected:
    void SetUp() override
    {
#ifdef __arm__
        GTEST_SKIP() << "functions that throw nothing end a backtrace on ARM, so Qt's readers are "
                        "not seen";
#endif
        m_pdu = GetParam().pdu();
        ASSERT_FALSE(m_pdu.isEmpty());
    }

    template <typename Kind>
    Outcome failEachAllocationOf(const Accepts &accepts = nullptr) const
    {
        return failEachAllocation([this] { return std::make_unique<Kind>(m_pdu); }, accepts);
    }

    const QByteArray &pdu() const
    {
        return m_pdu;
    }

private:
    QByteArray m_pdu;
    TimeZone m_zone{TimeZone::Shanghai}; // where a lost time zone shows
};

class NoMemoryForOldMessages : public NoMemoryForMessages
{
};

void expectMostAreReported(const Outcome &outcome, long fewest)
{
    EXPECT_GT(outcome.allocations, fewest);
    EXPECT_GT(outcome.reported, outcome.allocations / 2);
}

} // namespace

TEST_P(NoMemoryForOldMessages, IsReportedInEveryLayer)
{
    expectMostAreReported(failEachAllocationOf<Journey>(), 50);
}

TEST_P(NoMemoryForMessages, IsReportedByAWholeMessage)
{
    const Outcome outcome = failEachAllocationOf<Reception>(GetParam().accepts);
    EXPECT_GT(outcome.allocations, 50);
    EXPECT_GT(outcome.reported, 50);
}

TEST_P(NoMemoryForMessages, IsReportedByAReadablePdu)
{
    expectMostAreReported(failEachAllocationOf<Preparation>(), 5);
}

TEST_P(NoMemoryForMessages, IsReportedByAScan)
{
    expectMostAreReported(failEachAllocationOf<Scan>(), 1);
}

// Later messages have charsets. ICU never forgets that it got no memory for its tables.
TEST_P(NoMemoryForOldMessages, IsReportedByTheFirstWholeMessage)
{
    expectMostAreReported(
        failEachAllocationOfTheFirstRun([this] { return std::make_unique<Reception>(pdu()); }), 50);
}

TEST(NoMemoryForComposers, IsReportedByTheFirstMessage)
{
    expectMostAreReported(
        failEachAllocationOfTheFirstRun([] { return std::make_unique<Composition>(); }), 30);
}

INSTANTIATE_TEST_SUITE_P(Message, NoMemoryForMessages, testing::ValuesIn(messages), nameOf);
INSTANTIATE_TEST_SUITE_P(Message, NoMemoryForOldMessages,
                         testing::ValuesIn(std::span(messages).first<2>()), nameOf);

TEST(NoMemoryForComposers, IsReported)
{
    expectMostAreReported(failEachAllocation([] { return std::make_unique<Composition>(); }), 30);
}
