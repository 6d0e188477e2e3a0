/*
 * The version in a header, of the library that runs, and of the project.
 */
#include "base/version.h"

#include <gtest/gtest.h>

TEST(Version, IsTheSameInLibraryAndHeader)
{
    const std::string version = std::to_string(QVL_VERSION >> 16) + '.'
        + std::to_string(QVL_VERSION >> 8 & 0xFF) + '.' + std::to_string(QVL_VERSION & 0xFF);
    EXPECT_EQ(qvlVersion(), version);
    EXPECT_STREQ(qvlVersion(), QVL_PROJECT_VERSION);
}
