/*
 * The work for an untrusted message, counted in basic blocks: receiving, presenting, storing and
 * encoding it, and showing it as text and as JSON. Each may take a constant number of steps and a
 * number for each octet, so that the time for a message is bounded by its size. Steps within Qt,
 * expat and the platform library are not counted.
 */
#include "input/message.h"
#include "limits/steps.h"
#include "support/invariant.h"
#include "support/part_mutator.h"
#include "view/message_view.h"

#include <cstdint>
#include <cstdio>
#include <functional>
#include <tuple>

namespace {

struct Bound
{
    const char *what;
    long constant;
    long perOctet;
};

// The constants allow for empty messages. The numbers for each octet are at least twice the most
// that inputs of this target and messages with up to 1,500 slides took, which is in the comments. A
// message that takes twice the steps for each octet when it is twice as long exceeds them at some
// size.
constexpr Bound Receiving{"receiving", 20'000, 400}; // 96
constexpr Bound Presenting{"presenting", 20'000, 100}; // 33
constexpr Bound Storing{"storing", 20'000, 100}; // 8
constexpr Bound Encoding{"encoding", 20'000, 200}; // 50
constexpr Bound ShowingText{"showing as text", 20'000, 1'500}; // 495
constexpr Bound ShowingJson{"showing as JSON", 20'000, 1'500}; // 645: short fields have long names

// The octets that the work is measured by. Declarations may expand a document to 16 times its size
// and 65,536 characters, which are then read, stored and shown.
long sizeOf(QvlMessage &message)
{
    const auto *smil = message.parts().getSmilPart();
    QByteArray text = smil ? smil->getBodyData() : QByteArray();
    text.replace('\0', QByteArray()); // of UTF-16
    const auto octets = long(message.pdu().size());
    const bool expands = text.contains("<!ENTITY") || text.contains("<!ATTLIST");
    return expands ? 16 * octets + 65'536 : octets;
}

void requireWork(const Bound &bound, long octets, const std::function<void()> &work)
{
    Steps::reset();
    work();
    const long steps = Steps::count();
    require(steps > 0, "steps are counted");
    if (steps <= bound.constant + bound.perOctet * octets)
        return;
    std::fprintf(stderr, "%s: %ld steps for %ld octets\n", bound.what, steps, octets);
    require(false, "the work is bounded by the size");
}

void requireWorkOfLibrary(const QByteArray &pdu)
{
    QvlMessage message;
    bool isReceived = false;
    requireWork(Receiving, long(pdu.size()), [&] { isReceived = message.receive(pdu).isOk(); });
    if (!isReceived)
        return;
    const long octets = sizeOf(message);
    // Refused slides are stored and encoded as far as they were read.
    requireWork(Presenting, octets, [&] { std::ignore = message.present(); });
    requireWork(Storing, octets, [&] { std::ignore = message.storeSlides(); });
    QByteArray encoded;
    requireWork(Encoding, octets, [&] { std::ignore = message.encode(&encoded); });
}

void requireWorkOfViews(const QByteArray &pdu)
{
    const auto message = decodeMessage(pdu);
    const long octets = sizeOf(*message);
    requireWork(ShowingText, octets, [&] { messageText(*message); });
    requireWork(ShowingJson, octets, [&] { messageJson(*message); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray pdu(reinterpret_cast<const char *>(data), qsizetype(size));
    requireWorkOfLibrary(pdu);
    requireWorkOfViews(pdu);
    return 0;
}
