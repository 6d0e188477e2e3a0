/*
 * Memory runs out: the n-th allocation fails, for every n that a message takes on its way through
 * the library. No exception leaves the library, no memory is leaked or deleted twice, and the
 * results report the failure.
 *
 * Qt's readers of pictures end the process, or wait for ever, when memory runs out within them, so
 * their allocations succeed here. FFmpeg's demuxer of Ogg ends the process, too, and is left out.
 */
#include "message/message.h"
#include "message/multipart_parser.h"
#include "multipart/multipart_result.h"
#include "presentation/presentation.h"
#include "presentation/smil_result.h"
#include "smil/smil_parser.h"
#include "support/allocations.h"
#include "wire/header_decoder.h"
#include "wire/header_encoder.h"
#include "wire/header_record.h"
#include "wire/wire_result.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QIODevice>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>

#include <execinfo.h>
#include <link.h>

namespace {

/// The addresses of a library's code.
struct CodeRange
{
    const char *name;
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
};

int findLibrary(dl_phdr_info *info, size_t, void *found)
{
    auto *range = static_cast<CodeRange *>(found);
    if (!std::strstr(info->dlpi_name, range->name))
        return 0;
    range->begin = info->dlpi_addr;
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto &header = info->dlpi_phdr[i];
        range->end =
            std::max<std::uintptr_t>(range->end, info->dlpi_addr + header.p_vaddr + header.p_memsz);
    }
    return 1;
}

CodeRange rangeOf(const char *library)
{
    CodeRange range{library};
    dl_iterate_phdr(findLibrary, &range);
    return range;
}

const CodeRange pictureReaders = rangeOf("libQt6Gui");

bool isInPictureReader()
{
    std::array<void *, 64> frames{};
    const int count = backtrace(frames.data(), int(frames.size()));
    return std::any_of(frames.begin(), frames.begin() + count, [](void *frame) {
        const auto address = reinterpret_cast<std::uintptr_t>(frame);
        return address >= pictureReaders.begin && address < pictureReaders.end;
    });
}

thread_local long counted = 0;
thread_local long failing = 0; ///< the number of the allocation that fails; 0: none

bool shouldFail()
{
    return !isInPictureReader() && ++counted == failing;
}

using Multipart = MMS_COMP_SMILMultipart;

QByteArray fixture(const char *folder, const char *name)
{
    QFile file(
        QStringLiteral(QVL_FIXTURES "/%1/%2").arg(QLatin1String(folder), QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Receives and sends a message. The texts that a caller needs are created before anything fails.
class Journey
{
public:
    explicit Journey(const QByteArray &pdu) : m_pdu(pdu.constData(), pdu.size())
    {
        m_stored.open(QIODevice::ReadWrite);
        m_stored.write(QByteArray(10000, '\0')); // room that is there
    }

    /// True if every step reports that it did all of its work.
    bool go();

private:
    bool receive(MMS_UA_UAMsg *header, Multipart *body, MMS_COMP_SMILData *slides);
    bool edit(Multipart *body, MMS_COMP_SMILData *slides) const;
    bool store(MMS_COMP_SMILData *slides);
    bool send(MMS_UA_UAMsg *header, Multipart *body, MMS_COMP_SMILData *slides) const;

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

bool Journey::send(MMS_UA_UAMsg *header, Multipart *body, MMS_COMP_SMILData *slides) const
{
    slides->removeEmptyTextBeforeSend();
    const QString smil = MMS_COMP_SMILParser::convertToSMILLang(slides);
    const QByteArray octets = MMS_COMP_SMILMultipartParser::assembleBody(body, header);
    QByteArray out;
    const auto result = MMS_UA_Encoder().encodeHeader(header, &out);
    return !smil.isEmpty() && !octets.isEmpty() && result == WireResult::Written;
}

bool Journey::go()
{
    MMS_UA_UAMsg header;
    Multipart body;
    MMS_COMP_SMILData slides(&body);
    return receive(&header, &body, &slides) && edit(&body, &slides) && store(&slides)
        && send(&header, &body, &slides);
}

/// The probes of a clip before a viewer shows it.
class Probes
{
public:
    Probes(const QByteArray &clip, const char *name)
    {
        m_part.setContentType(QStringLiteral("audio"));
        m_part.setContentLocation(QLatin1String(name));
        m_part.setBodyData(clip);
    }

    bool go() { return m_part.getPlayDur() > 0 && m_part.isMediaObjectSupported(); }

private:
    MMS_COMP_SMILMultipartBodypart m_part;
};

struct Outcome
{
    long allocations = 0;
    long reported = 0; ///< how many of their failures the result reports
};

/// Runs what @p make creates once for each of its allocations, and lets that allocation fail.
template <typename Make>
void failEachAllocation(Make make, Outcome &outcome)
{
    std::array<void *, 4> frames{};
    backtrace(frames.data(), int(frames.size())); // loads what it needs
    for (int i = 0; i < 2; ++i) { // creates what is created only once
        auto work = make();
        ASSERT_TRUE(work.go());
    }
    {
        auto work = make();
        counted = failing = 0;
        const CountedAllocations allocations(shouldFail);
        ASSERT_TRUE(work.go());
        outcome.allocations = counted;
    }
    for (long n = 1; n <= outcome.allocations; ++n) {
        auto work = make();
        counted = 0;
        failing = n;
        bool done = false;
        long lost = 0;
        try {
            const CountedAllocations allocations(shouldFail);
            done = work.go();
            lost = allocations.balance();
        } catch (const std::bad_alloc &) {
            ADD_FAILURE() << "an exception left the library at allocation " << n;
            continue;
        }
        // The C library drops its time zone before it takes memory for the next one.
        EXPECT_LE(lost, 0) << "blocks lost at allocation " << n;
        tzset();
        outcome.reported += !done;
    }
}

} // namespace

/// A message in one object, with changes of its header and body: received, presented twice,
/// encoded.
class WholeMessage
{
public:
    explicit WholeMessage(const QByteArray &pdu) : m_pdu(pdu) { }

    bool go()
    {
        QvlMessage message;
        if (!message.receive(m_pdu).isOk() || message.changes().size() != 3)
            return false;
        const bool isPresented = message.present().isOk();
        const unsigned int slides = message.slides().getTotalSlidesNum();
        EXPECT_EQ(message.present().isOk(), isPresented);
        EXPECT_EQ(message.slides().getTotalSlidesNum(), slides);
        QByteArray octets;
        const bool isWhole = isPresented && message.storeSlides() && message.encode(&octets).isOk();
        EXPECT_TRUE(isWhole || octets.isEmpty());
        return isWhole;
    }

private:
    QByteArray m_pdu;
};

class NoMemoryForMessages : public testing::TestWithParam<const char *>
{
};

TEST_P(NoMemoryForMessages, EveryAllocationMayFail)
{
#ifdef __arm__
    GTEST_SKIP()
        << "functions that throw nothing end a backtrace on ARM, so Qt's readers are not seen";
#endif
    const QByteArray pdu = fixture("messages", GetParam());
    ASSERT_FALSE(pdu.isEmpty());
    Outcome outcome;
    failEachAllocation([&pdu] { return Journey(pdu); }, outcome);
    EXPECT_GT(outcome.allocations, 50);
    EXPECT_GT(outcome.reported, outcome.allocations / 2);
}

INSTANTIATE_TEST_SUITE_P(Message, NoMemoryForMessages, testing::Values("related.mms", "mixed.mms"));

TEST(NoMemoryForWholeMessages, EveryAllocationMayFail)
{
#ifdef __arm__
    GTEST_SKIP()
        << "functions that throw nothing end a backtrace on ARM, so Qt's readers are not seen";
#endif
    // Read-Status; Content-Type of e-mail; one part in base64 and ISO-8859-1.
    const QByteArray pdu = QByteArray::fromHex("8c848d929b8084") + "multipart/mixed" + '\0'
        + QByteArray::fromHex("01250403838184") + "Content-Transfer-Encoding" + '\0' + "base64"
        + '\0' + "4Q==";
    Outcome outcome;
    failEachAllocation([&pdu] { return WholeMessage(pdu); }, outcome);
    EXPECT_GT(outcome.allocations, 50);
    EXPECT_GT(outcome.reported, outcome.allocations / 2);
}

class NoMemoryForClips : public testing::TestWithParam<const char *>
{
};

TEST_P(NoMemoryForClips, EveryAllocationMayFail)
{
    const QByteArray clip = fixture("clips", GetParam());
    ASSERT_FALSE(clip.isEmpty());
    Outcome outcome;
    failEachAllocation([&clip, name = GetParam()] { return Probes(clip, name); }, outcome);
    EXPECT_GT(outcome.reported, 0); // demuxers do without much of what they ask for
}

INSTANTIATE_TEST_SUITE_P(Clip, NoMemoryForClips,
                         testing::Values("sound.aac", "sound.amr", "sound.m4a", "sound.mp3",
                                         "sound.wav", "video.3gp", "video.avi", "video.mpg"));
