/*
 * A decoder module that misbehaves as its clip says, in place of FFmpeg with a hostile clip.
 */
#include "convert/decoder_module.h"

#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <unistd.h>

namespace {

constexpr int Rate = 8000;

bool playSecond(void *taker, TakeSound take)
{
    constexpr std::array<int16_t, Rate> silence{};
    return take(taker, Rate, 1, silence.data(), silence.size());
}

// Returns only if it got the memory.
void takeGigabyte()
{
    constexpr std::size_t Gigabyte = std::size_t(1) << 30;
    void *memory = std::malloc(Gigabyte);
    if (!memory)
        std::abort();
    std::memset(memory, 1, Gigabyte);
}

void writeWithoutEnd()
{
    constexpr std::array<char, 65536> octets{};
    while (::write(STDOUT_FILENO, octets.data(), octets.size()) > 0) { }
}

bool misbehave(const uint8_t *clip, std::size_t size, const char *, void *taker, TakeSound take)
{
    const std::string_view wish(reinterpret_cast<const char *>(clip), size);
    if (wish == "compute") {
        for (std::atomic<unsigned> i = 0;; ++i) { }
    } else if (wish == "sleep") {
        while (true)
            ::pause();
    } else if (wish == "play on") {
        while (playSecond(taker, take)) { }
        return true;
    } else if (wish == "write on") {
        writeWithoutEnd();
    } else if (wish == "memory") {
        takeGigabyte();
    } else if (wish == "crash") {
        std::raise(SIGSEGV);
    } else if (wish == "kill") {
        std::raise(SIGKILL);
    }
    return playSecond(taker, take);
}

bool showNothing(const uint8_t *, std::size_t, const char *, void *, TakePicture)
{
    return false;
}

} // namespace

const DecoderModule qvlmmsDecoder{misbehave, showNothing};
