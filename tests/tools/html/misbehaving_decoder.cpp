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

// Does what the clip says. False when it says nothing of that.
bool misbehave(std::string_view wish)
{
    if (wish == "compute") {
        for (std::atomic<unsigned> i = 0;; ++i) { }
    } else if (wish == "sleep") {
        while (true)
            ::pause();
    } else if (wish == "write on") {
        writeWithoutEnd();
    } else if (wish == "memory") {
        takeGigabyte();
    } else if (wish == "crash") {
        std::raise(SIGSEGV);
    } else if (wish == "kill") {
        std::raise(SIGKILL);
    } else {
        return false;
    }
    return true;
}

std::string_view wishOf(const uint8_t *clip, std::size_t size)
{
    return {reinterpret_cast<const char *>(clip), size};
}

bool playSound(const uint8_t *clip, std::size_t size, const char *, void *taker, TakeSound take)
{
    const std::string_view wish = wishOf(clip, size);
    misbehave(wish);
    if (wish == "play on")
        while (playSecond(taker, take)) { }
    return wish == "play on" || playSecond(taker, take);
}

bool showNothing(const uint8_t *, std::size_t, const char *, void *, TakePicture)
{
    return false;
}

// A picture and half a second of sound; false once nobody wants more.
bool playHalf(int64_t ms, ClipTaker *taker)
{
    constexpr int Side = 256;
    static constexpr std::array<uint8_t, Side * Side * 3> black{};
    constexpr std::array<int16_t, Rate / 2> silence{};
    return taker->takePicture(ms, Side, Side, black.data())
        && taker->takeSound(ms, Rate, 1, silence.data(), silence.size());
}

int64_t playClip(const uint8_t *clip, std::size_t size, const char *, int64_t, int,
                 ClipTaker *taker)
{
    constexpr int64_t Half = 500; // milliseconds
    const std::string_view wish = wishOf(clip, size);
    if (wish == "play and kill")
        playHalf(0, taker);
    misbehave(wish == "play and kill" ? "kill" : wish);
    if (wish == "same time")
        while (playHalf(0, taker)) { }
    int64_t ms = 0;
    while (playHalf(ms, taker) && wish == "play on")
        ms += Half;
    return ms + Half;
}

} // namespace

const DecoderModule qvlmmsDecoder{playSound, showNothing, playClip};
