/*
 * The desktop's player engine exists, and a program can replace it by its own.
 */
#include "platform/player_engine.h"

#include <gtest/gtest.h>

#include <string>

#include <dlfcn.h>

TEST(MP_CreatePlayerEngine, ReturnsANewEngineAtEveryCall)
{
    MP_PlayerEngine *first = MP_CreatePlayerEngine(nullptr, nullptr);
    MP_PlayerEngine *second = MP_CreatePlayerEngine(nullptr, nullptr);
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    first->destroy();
    second->destroy();
}

// A program can replace only a function that the dynamic linker looks up by name.
TEST(MP_CreatePlayerEngine, IsFoundByNameInThePlatformLibrary)
{
    void *function = dlsym(
        RTLD_DEFAULT, "_Z21MP_CreatePlayerEngineP28SOUNDM_AudioDevice_InterfaceP15Qvl_VideoDevice");
    ASSERT_NE(function, nullptr);
    Dl_info info;
    ASSERT_NE(dladdr(function, &info), 0);
    EXPECT_NE(std::string(info.dli_fname).find("libqvlplatform"), std::string::npos)
        << info.dli_fname;
}

TEST(StaticStreamInfo, StartsWithNothingKnown)
{
    const StaticStreamInfo info;
    EXPECT_TRUE(info.title.isNull());
    EXPECT_TRUE(info.author.isNull());
    EXPECT_TRUE(info.copyright.isNull());
    EXPECT_EQ(info.playDuration, 0);
}
