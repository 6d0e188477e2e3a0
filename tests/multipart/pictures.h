/*
 * Pictures, and octets that are not pictures, for the tests that decode images with and without a
 * GUI.
 */
#pragma once

#include "multipart/part_facts.h"

#include <gtest/gtest.h>

struct PictureRow
{
    const char *name;
    QByteArray octets;
    bool decodes;
};

inline const PictureRow Pictures[] = {
    {"bitmap of one pixel", "P1\n1 1\n1\n", true},
    {"greymap of two pixels", "P2\n2 1\n255\n0 255\n", true},
    {"GIF of one pixel",
     "47 49 46 38 39 61 01 00 01 00 80 00 00 00 00 00 FF FF FF"
     " 2C 00 00 00 00 01 00 01 00 00 02 02 44 01 00 3B"_octets,
     true},
    {"bitmap without pixels", "P1\n0 0\n", false},
    {"text", "no picture", false},
    {"nothing", "", false},
};

/// Probes a part with each picture twice: the second result is the remembered one.
inline void expectPicturesProbed()
{
    for (const PictureRow &row : Pictures) {
        SCOPED_TRACE(row.name);
        Part part = partWith({.format = "image/x", .data = row.octets});
        EXPECT_EQ(part.isMediaObjectSupported(), row.decodes);
        EXPECT_EQ(part.isMediaObjectSupported(), row.decodes);
    }
}
