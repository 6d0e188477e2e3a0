/*
 * The body part as a value: its fields and their codes, its octets, and its record in a stream. The
 * media probes are tested apart.
 */
#include "multipart/body_part.h"

#include "multipart/multipart_result.h"
#include "multipart/part_facts.h"
#include "platform/email_util.h"

#include <QDataStream>
#include <QIODevice>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <tuple>

namespace {

constexpr int UnknownCode = 9999;

struct TextField
{
    const char *name;
    QString (*get)(const Part &);
    int (*set)(Part &, const QString &); // -1 for a setter without result
};

constexpr int NoResult = -1;

const TextField TextFields[] = {
    {"display file name", [](const Part &p) { return p.getDispFileName(); },
     [](Part &p, const QString &text) { return p.setDispFileName(text); }},
    {"content type", [](const Part &p) { return p.getContentType(); },
     [](Part &p, const QString &text) { return p.setContentType(text), NoResult; }},
    {"subtype", [](const Part &p) { return p.getSubType(); },
     [](Part &p, const QString &text) { return p.setContentSubType(text); }},
    {"charset", [](const Part &p) { return p.getCharset(); },
     [](Part &p, const QString &text) { return p.setCharset(text), NoResult; }},
    {"description", [](const Part &p) { return p.getDescription(); },
     [](Part &p, const QString &text) { return p.setDescription(text), NoResult; }},
    {"content location", [](const Part &p) { return p.getContentLocation(); },
     [](Part &p, const QString &text) { return p.setContentLocation(text); }},
    {"content ID", [](const Part &p) { return p.getContentID(); },
     [](Part &p, const QString &text) { return p.setContentID(text); }},
    {"transfer encoding", [](const Part &p) { return p.getContentXferEncoding(); },
     [](Part &p, const QString &text) { return p.setContentXferEncoding(text); }},
};

int resultOf(const QString &field)
{
    if (field == "subtype")
        return 1;
    return field == "content type" || field == "charset" || field == "description" ? NoResult : 0;
}

} // namespace

TEST(BodyPart, NewOneIsAnEmptyAttachmentInUseOnce)
{
    const Part part;
    EXPECT_EQ(factsOf(part), PartFacts());
    EXPECT_EQ(part.getDispFileType(), 1);
    EXPECT_EQ(part.getRefCount(), 1);
    EXPECT_EQ(part.getMimeFormat(), "/");
    EXPECT_EQ(part.getBodyDataLen(), 0);
    for (const TextField &field : TextFields) {
        EXPECT_TRUE(field.get(part).isEmpty()) << field.name;
        EXPECT_FALSE(field.get(part).isNull()) << field.name;
    }
}

TEST(BodyPart, TextSettersKeepTheTextAndReturnTheirOwnResults)
{
    for (const TextField &field : TextFields) {
        SCOPED_TRACE(field.name);
        Part part;
        EXPECT_EQ(field.set(part, " <Text> "), resultOf(field.name));
        for (const TextField &other : TextFields)
            EXPECT_EQ(other.get(part), other.name == field.name ? " <Text> " : "") << other.name;
        EXPECT_EQ(field.set(part, QString()), resultOf(field.name));
        EXPECT_TRUE(field.get(part).isNull());
    }
}

TEST(BodyPart, NumbersAreKeptAsGiven)
{
    Part part;
    part.setDispFileType(Part::Shown);
    part.setRefCount(7);
    EXPECT_EQ(part.getDispFileType(), 0);
    EXPECT_EQ(part.getRefCount(), 7);
}

TEST(BodyPart, ArrayIsShared)
{
    const QByteArray data("octets");
    Part part;
    part.setBodyData(data);
    EXPECT_EQ(part.getBodyData().constData(), data.constData());
    EXPECT_EQ(part.getBodyDataLen(), 6);
}

TEST(BodyPart, OctetsByPointerAreCopied)
{
    char octets[] = {'a', '\0', 'c'};
    Part part;
    EXPECT_EQ(part.setBodyData(octets, 3), MultipartResult::Ok);
    octets[0] = 'x';
    EXPECT_EQ(part.getBodyData(), "61 00 63"_octets);
    EXPECT_EQ(part.setBodyData(octets, 1), MultipartResult::Ok);
    EXPECT_EQ(part.getBodyData(), "x");
}

TEST(BodyPart, LengthBelowOneClearsTheBody)
{
    for (const int length : {0, -1, -5, std::numeric_limits<int>::min()}) {
        Part part = partWith({.data = "octets"});
        EXPECT_EQ(part.setBodyData("abc", length), MultipartResult::Ok);
        EXPECT_EQ(part.getBodyDataLen(), 0);
        EXPECT_EQ(part.setBodyData(nullptr, length), MultipartResult::Ok);
    }
}

TEST(BodyPart, NullOctetsAreRefusedAndKeepTheBody)
{
    for (const int length : {1, 5, std::numeric_limits<int>::max()}) {
        Part part = partWith({.data = "octets"});
        EXPECT_EQ(part.setBodyData(nullptr, length), MultipartResult::OutOfMemory);
        EXPECT_EQ(part.getBodyData(), "octets");
    }
}

TEST(BodyPart, CopyHasEverythingAndSharesTheOctets)
{
    Part source = partWith({.format = "image/jpeg",
                            .charset = "c",
                            .location = "l",
                            .id = "i",
                            .name = "n",
                            .data = "octets",
                            .display = 0,
                            .refCount = 3});
    source.setDescription("d");
    source.setContentXferEncoding("x");
    const Part copy(source);
    Part assigned;
    assigned = source;
    for (const Part &part : {std::cref(copy), std::cref(assigned)}) {
        EXPECT_EQ(factsOf(part), factsOf(source));
        EXPECT_EQ(part.getDescription(), "d");
        EXPECT_EQ(part.getContentXferEncoding(), "x");
        EXPECT_EQ(part.getBodyData().constData(), source.getBodyData().constData());
    }
}

TEST(BodyPart, CopyAndSourceGetOctetsIndependently)
{
    Part source = partWith({.data = "source"});
    Part copy(source);
    copy.setBodyData("copy", 4);
    EXPECT_EQ(source.getBodyData(), "source");
    Part second(source);
    source.setBodyData(QByteArray("other"));
    EXPECT_EQ(second.getBodyData(), "source");
    EXPECT_EQ(copy.getBodyData(), "copy");
}

TEST(BodyPart, MimeFormatJoinsTypeAndSubtype)
{
    const std::tuple<QString, QString, QString> rows[] = {
        {"image", "jpeg", "image/jpeg"},   {"", "jpeg", "/jpeg"}, {"image", "", "image/"},
        {"Image", " JPEG", "Image/ JPEG"}, {"%1", "%2", "%1/%2"},
    };
    for (const auto &[type, subtype, format] : rows) {
        Part part;
        part.setContentType(type);
        part.setContentSubType(subtype);
        EXPECT_EQ(part.getMimeFormat(), format);
    }
}

TEST(BodyPart, FormatIsSplitAtItsFirstAndAtItsLastSlash)
{
    const std::tuple<QString, QString, QString> rows[] = {
        {"image/jpeg", "image", "jpeg"},
        {"a/b/c", "a", "c"},
        {"a//b", "a", "b"},
        {"/", "", ""},
        {"a/", "a", ""},
        {"/b", "", "b"},
        {" A / B ", " A ", " B "},
        {"jpeg", "", ""},
        {"", "", ""},
        {QString(), "", ""},
    };
    for (const auto &[format, type, subtype] : rows) {
        SCOPED_TRACE(format.toStdString());
        EXPECT_EQ(Part::getTypePartFromFormat(format), type);
        EXPECT_EQ(Part::getSubTypePartFromFormat(format), subtype);
    }
}

TEST(BodyPartCodes, TypeAndSubtypeConvertBothWays)
{
    Part part;
    EXPECT_EQ(part.setContentType(EMAIL_Util::Application), 1);
    EXPECT_EQ(part.getContentType(), "application");
    EXPECT_EQ(part.getContentTypeByCode(), 4);
    const std::pair<int, QString> subtypes[] = {{64, "vnd.wap.multipart.related"}, {66, "smil"}};
    for (const auto &[code, text] : subtypes) {
        EXPECT_EQ(part.setSubTypeCode(code), 1);
        EXPECT_EQ(part.getSubType(), text);
        EXPECT_EQ(part.getSubTypeCode(), code);
    }
}

TEST(BodyPartCodes, MainTypesHaveCodes)
{
    const std::pair<int, QString> rows[] = {
        {1, "text"}, {4, "application"}, {5, "image"}, {6, "audio"}, {7, "video"}};
    for (const auto &[code, text] : rows) {
        Part part;
        EXPECT_EQ(part.setContentType(code), 1);
        EXPECT_EQ(part.getContentType(), text);
        EXPECT_EQ(part.getContentTypeByCode(), code);
    }
}

TEST(BodyPartCodes, UnknownCodeChangesNothing)
{
    Part part = partWith({.format = "image/jpeg", .charset = "c"});
    for (const int code : {UnknownCode, -1}) {
        EXPECT_EQ(part.setContentType(code), 0);
        EXPECT_EQ(part.setSubTypeCode(code), 0);
        EXPECT_EQ(part.setCharsetByCode(code), 0);
    }
    EXPECT_EQ(factsOf(part), (PartFacts{.format = "image/jpeg", .charset = "c"}));
}

TEST(BodyPartCodes, UnknownTextHasNoCode)
{
    Part part = partWith({.format = "x/y", .charset = "z"});
    part.setContentXferEncoding("z");
    EXPECT_EQ(part.getContentTypeByCode(), -1);
    EXPECT_EQ(part.getSubTypeCode(), -1);
    EXPECT_EQ(part.getCharsetByCode(), -1);
    EXPECT_EQ(part.getContentXferEncodingByCode(), -1);
}

TEST(BodyPartCodes, CharsetIsSetFromItsOwnTable)
{
    QCString text;
    ASSERT_TRUE(EMAIL_Util::charsetEnumToStr(2, text));
    Part part;
    EXPECT_EQ(part.setCharsetByCode(2), 1);
    EXPECT_EQ(part.getCharset(), QString::fromLatin1(text));
}

TEST(BodyPartCodes, CharsetIsLookedUpAmongTheSubtypes)
{
    Part part;
    ASSERT_EQ(part.setCharsetByCode(2), 1);
    EXPECT_EQ(part.getCharsetByCode(), -1);
    part.setCharset("smil");
    EXPECT_EQ(part.getCharsetByCode(), 66);
}

TEST(BodyPartCodes, TransferEncodingOfAnUnknownCodeIsEmpty)
{
    const int base64 = EMAIL_Util::cteStrToEnum("base64");
    ASSERT_NE(base64, -1);
    Part part;
    part.setContentXferEncodingByCode(base64);
    EXPECT_EQ(part.getContentXferEncoding(), "base64");
    EXPECT_EQ(part.getContentXferEncodingByCode(), base64);
    part.setContentXferEncodingByCode(UnknownCode);
    EXPECT_EQ(part.getContentXferEncoding(), "");
}

namespace {

// The order of the record: type, subtype, charset, display name, description, location, ID,
// transfer encoding, display file type, octets.
QList<QByteArray> bigEndianRecord()
{
    return {"00 00 00 02 00 61"_octets, "00 00 00 04 00 62 00 42"_octets,
            "00 00 00 02 00 63"_octets, "00 00 00 02 00 64"_octets,
            "FF FF FF FF"_octets, // null
            "00 00 00 02 00 66"_octets, "00 00 00 04 20 AC 00 67"_octets,
            "00 00 00 00"_octets, // empty
            "00 00 00 01"_octets,       "00 00 00 03 01 00 FF"_octets};
}

QByteArray littleEndianRecord()
{
    return "02 00 00 00 61 00"
           " 04 00 00 00 62 00 42 00"
           " 02 00 00 00 63 00"
           " 02 00 00 00 64 00"
           " FF FF FF FF"
           " 02 00 00 00 66 00"
           " 04 00 00 00 AC 20 67 00"
           " 00 00 00 00"
           " 01 00 00 00"
           " 03 00 00 00 01 00 FF"_octets;
}

PartFacts recordedFacts()
{
    return {.format = "a/bB",
            .charset = "c",
            .location = "f",
            .id = QString(QChar(0x20AC)) + "g",
            .name = "d",
            .data = "01 00 FF"_octets,
            .display = Part::Attachment};
}

Part recordedPart()
{
    Part part = partWith(recordedFacts());
    part.setDescription(QString());
    return part;
}

QByteArray written(const Part &part, int version, QDataStream::ByteOrder order)
{
    QByteArray octets;
    QDataStream stream(&octets, QIODevice::WriteOnly);
    stream.setVersion(version);
    stream.setByteOrder(order);
    EXPECT_EQ(part.writeToStream(stream), 1);
    return octets;
}

// A part in which every field of a record has another value than in a new part.
Part partReadFrom(const QByteArray &octets, int version,
                  QDataStream::ByteOrder order = QDataStream::BigEndian)
{
    Part part;
    for (const TextField &field : TextFields)
        field.set(part, "old");
    part.setBodyData(QByteArray("old"));
    part.setDispFileType(5);
    part.setRefCount(4);
    QDataStream stream(octets);
    stream.setVersion(version);
    stream.setByteOrder(order);
    EXPECT_EQ(part.readFromStream(stream), 1);
    return part;
}

constexpr int StreamVersions[] = {QDataStream::Qt_2_1, QDataStream::Qt_3_1, QDataStream::Qt_6_0};

} // namespace

TEST(BodyPartStream, RecordIsTheSameInEveryVersion)
{
    for (const int version : StreamVersions) {
        SCOPED_TRACE(version);
        const QByteArray octets = bigEndianRecord().join();
        EXPECT_EQ(written(recordedPart(), version, QDataStream::BigEndian), octets);
        PartFacts facts = recordedFacts();
        facts.refCount = 4; // not in the record
        const Part part = partReadFrom(octets, version);
        EXPECT_EQ(factsOf(part), facts);
        EXPECT_TRUE(part.getDescription().isNull());
        EXPECT_EQ(part.getContentXferEncoding(), "");
    }
}

TEST(BodyPartStream, UsesTheByteOrderOfTheStream)
{
    for (const int version : StreamVersions) {
        SCOPED_TRACE(version);
        EXPECT_EQ(written(recordedPart(), version, QDataStream::LittleEndian),
                  littleEndianRecord());
        PartFacts facts = recordedFacts();
        facts.refCount = 4;
        EXPECT_EQ(factsOf(partReadFrom(littleEndianRecord(), version, QDataStream::LittleEndian)),
                  facts);
    }
}

TEST(BodyPartStream, NewPartIsReadBackUnchanged)
{
    for (const int version : StreamVersions) {
        SCOPED_TRACE(version);
        const QByteArray octets = written(Part(), version, QDataStream::BigEndian);
        EXPECT_EQ(octets, octet(0, 35) + octet(1) + octet(0, 4)); // texts, the number, no octets
        EXPECT_EQ(factsOf(partReadFrom(octets, version)), (PartFacts{.refCount = 4}));
    }
}

namespace {

struct EmptyBodyRow
{
    const char *what;
    void (*make)(Part &);
};

const EmptyBodyRow EmptyBodyRows[] = {
    {"new", [](Part &) {}},
    {"length 0", [](Part &p) { p.setBodyData("abc", 0); }},
    {"negative length", [](Part &p) { p.setBodyData("abc", -1); }},
    {"no octets at all", [](Part &p) { p.setBodyData(nullptr, 0); }},
    {"null array", [](Part &p) { p.setBodyData(QByteArray()); }},
    {"emptied by a null array",
     [](Part &p) {
         p.setBodyData("abc", 3);
         p.setBodyData(QByteArray());
     }},
    {"empty array", [](Part &p) { p.setBodyData(QByteArray("")); }},
    {"copy", [](Part &p) { p = Part(Part()); }},
    {"record with a null array",
     [](Part &p) { p = partReadFrom(octet(0, 36) + "FF FF FF FF"_octets, QDataStream::Qt_6_0); }},
    {"truncated record", [](Part &p) { p = partReadFrom(octet(0, 36), QDataStream::Qt_6_0); }},
};

} // namespace

TEST(BodyPartStream, EmptyBodyIsALengthOfZeroAndNeverANullArray)
{
    for (const EmptyBodyRow &row : EmptyBodyRows) {
        SCOPED_TRACE(row.what);
        Part part;
        row.make(part);
        EXPECT_FALSE(part.getBodyData().isNull());
        EXPECT_EQ(part.getBodyDataLen(), 0);
        for (const int version : StreamVersions)
            EXPECT_EQ(written(part, version, QDataStream::BigEndian).last(4), octet(0, 4));
    }
}

TEST(BodyPartStream, DescriptionAndTransferEncodingAreReadBack)
{
    Part part;
    part.setDescription("d");
    part.setContentXferEncoding("x");
    const Part back = partReadFrom(written(part, QDataStream::Qt_6_0, QDataStream::BigEndian),
                                   QDataStream::Qt_6_0);
    EXPECT_EQ(back.getDescription(), "d");
    EXPECT_EQ(back.getContentXferEncoding(), "x");
}

TEST(BodyPartStream, RecordsFollowOneAnother)
{
    const QByteArray octets = bigEndianRecord().join() + bigEndianRecord().join();
    QDataStream stream(octets);
    Part first;
    Part second;
    EXPECT_EQ(first.readFromStream(stream), 1);
    EXPECT_EQ(second.readFromStream(stream), 1);
    EXPECT_TRUE(stream.atEnd());
    EXPECT_EQ(factsOf(first), recordedFacts());
    EXPECT_EQ(factsOf(second), recordedFacts());
}

namespace {

QStringList recordedTexts(const Part &part)
{
    return {part.getContentType(), part.getSubType(),
            part.getCharset(),     part.getDispFileName(),
            part.getDescription(), part.getContentLocation(),
            part.getContentID(),   part.getContentXferEncoding()};
}

} // namespace

TEST(BodyPartStream, TruncatedRecordYieldsItsCompleteFieldsAndEmptyOnes)
{
    const QList<QByteArray> record = bigEndianRecord();
    const QByteArray whole = record.join();
    const QStringList texts = recordedTexts(recordedPart());
    for (qsizetype size = 0; size < whole.size(); ++size) {
        SCOPED_TRACE(size);
        qsizetype end = 0;
        QStringList delivered;
        for (qsizetype i = 0; i < texts.size(); ++i) {
            end += record[i].size();
            delivered += end <= size ? texts[i] : "";
        }
        const Part part = partReadFrom(whole.first(size), QDataStream::Qt_3_1);
        EXPECT_EQ(recordedTexts(part), delivered);
        EXPECT_EQ(part.getDispFileType(), size < end + record[8].size() ? 0 : 1);
        EXPECT_EQ(part.getBodyDataLen(), 0);
    }
}

TEST(BodyPartStream, LengthsBeyondTheStreamYieldEmptyValues)
{
    const Part text = partReadFrom("7F FF FF FE 00 61"_octets, QDataStream::Qt_6_0);
    EXPECT_EQ(text.getContentType(), "");
    const QByteArray data = octet(0, 36) + "7F FF FF FF 41"_octets;
    EXPECT_EQ(partReadFrom(data, QDataStream::Qt_6_0).getBodyDataLen(), 0);
}
