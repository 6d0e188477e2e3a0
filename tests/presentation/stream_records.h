/*
 * Records in streams, octet by octet: their pieces, and helpers that write and read one in a
 * version and truncate one anywhere. All numbers are big-endian.
 */
#pragma once

#include "presentation/model_facts.h"

#include <QDataStream>
#include <QIODevice>
#include <QList>

constexpr int StreamVersions[] = {QDataStream::Qt_2_1, QDataStream::Qt_3_1, QDataStream::Qt_6_0};

template <typename T>
QByteArray written(const T &object, int version = QDataStream::Qt_6_0)
{
    QByteArray octets;
    QDataStream stream(&octets, QIODevice::WriteOnly);
    stream.setVersion(version);
    EXPECT_TRUE(object.writeToStream(stream));
    EXPECT_EQ(stream.status(), QDataStream::Ok);
    return octets;
}

/// Reads @p octets into @p object and returns the status of the stream.
template <typename T>
QDataStream::Status readFrom(const QByteArray &octets, T *object, int version = QDataStream::Qt_6_0)
{
    QDataStream stream(octets);
    stream.setVersion(version);
    EXPECT_TRUE(object->readFromStream(stream));
    return stream.status();
}

/// The octets that the first @p count of @p fields take.
inline qsizetype sizeOfFirst(const QList<QByteArray> &fields, qsizetype count)
{
    return fields.first(count).join().size();
}

/// name "n", value a euro sign, value type 2, no type.
inline QList<QByteArray> paramFields()
{
    return {"00 00 00 02 00 6E"_octets, "00 00 00 02 20 AC"_octets, "00 00 00 02"_octets,
            "FF FF FF FF"_octets};
}

/// Type "a", subtype "b", location "l", octets 01 00 FF, shown.
inline QList<QByteArray> partFields()
{
    const QByteArray empty = "00 00 00 00"_octets;
    return {"00 00 00 02 00 61"_octets,
            "00 00 00 02 00 62"_octets,
            empty, // charset
            empty, // display name
            "FF FF FF FF"_octets, // description
            "00 00 00 02 00 6C"_octets,
            empty, // Content-ID
            empty, // transfer encoding
            "00 00 00 00"_octets,
            "00 00 00 03 01 00 FF"_octets};
}

/// The fields of an object's record up to and including alt: text, "m", "s", "r", no MIME type,
/// begin 1000 after the event "b", end -1, alt "x".
inline QList<QByteArray> attributeFields()
{
    return {"00 00 00 02"_octets,       "00 00 00 02 00 6D"_octets, "00 00 00 02 00 73"_octets,
            "00 00 00 02 00 72"_octets, "00 00 00 00"_octets,       "00 00 00 01"_octets,
            "00 00 00 02 00 62"_octets, "00 00 03 E8"_octets,       "00 00 00 00"_octets,
            "FF FF FF FF"_octets,       "FF FF FF FF"_octets,       "00 00 00 02 00 78"_octets};
}

inline ObjectFacts recordedFacts()
{
    return {.type = 2,
            .mediaType = "m",
            .src = "s",
            .region = "r",
            .begin = {1, "b", 1000},
            .end = {0, {}, -1},
            .alt = "x",
            .params = {QString("n|") + QChar(0x20AC) + "|2|"}};
}

/// An object's record with the part above and one param.
inline QList<QByteArray> objectFields()
{
    return attributeFields() + QList<QByteArray>{"00 00 00 01"_octets} + partFields()
        + QList<QByteArray>{"00 00 00 01"_octets} + paramFields();
}

/// The record of a new object: unknown, no times, no part, no params.
inline QByteArray newObjectRecord()
{
    return "00 00 00 05 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00"
           " 00 00 00 02 FF FF FF FF 00 00 00 00"
           " 00 00 00 02 FF FF FF FF 00 00 00 00"
           " 00 00 00 00 00 00 00 00 00 00 00 00"_octets;
}

/// Counts that are too large for a stream of a few octets, and how many items are started for them
/// at the end of the stream.
inline const std::pair<QByteArray, int> HostileCounts[] = {
    {"FF FF FF FF"_octets, 0},
    {"80 00 00 00"_octets, 0},
    {"7F FF FF FF"_octets, 1},
    {"00 01 00 00"_octets, 1},
};

/// Lengths of a missing text or array.
inline const QByteArray HostileLengths[] = {
    "7F FF FF FE"_octets, "7F FF FF FF"_octets, "80 00 00 00"_octets,
    "FF FF FF FE"_octets, "FF FF FF FD"_octets, "00 10 00 00"_octets,
};
