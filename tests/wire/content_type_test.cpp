/*
 * Content types: the one-octet form, the general form of related bodies with its tolerances, the
 * writer's fixed layout, and the parameter texts.
 */
#include "wire/content_type.h"

#include "wire/codec_calls.h"

#include <gtest/gtest.h>

namespace {

const char *const related = "vnd.wap.multipart.related";
const char *const noParameters = "type=;start=";

MMS_CONTENT_TYPE_T usedContentType()
{
    return {"old", "older", "oldest"};
}

struct ReadRow
{
    const char *name;
    QByteArray octets;
    QString type, subtype, parameters;
    int left = 0; // octets of the row that stay unread
};

void expectRead(const std::vector<ReadRow> &rows)
{
    for (const ReadRow &row : rows) {
        SCOPED_TRACE(row.name);
        const auto reading = readValue<ContentTypeField>(row.octets, usedContentType());
        EXPECT_EQ(reading.result, WireResult::Read);
        EXPECT_EQ(reading.value.type, row.type);
        EXPECT_EQ(reading.value.subtype, row.subtype);
        EXPECT_EQ(reading.value.parameters, row.parameters);
        EXPECT_EQ(reading.position, row.octets.size() - row.left);
    }
}

void expectRelated(std::vector<ReadRow> rows)
{
    for (ReadRow &row : rows) {
        row.type = "application";
        row.subtype = related;
    }
    expectRead(rows);
}

TEST(ContentTypeValue, ReadsAWellKnownMediaCodeFromOneOctet)
{
    expectRead({
        {"lowest", "81"_octets, "text", "*", ""},
        {"plain text", "83"_octets, "text", "plain", ""},
        {"mixed", "A3"_octets, "application", "vnd.wap.multipart.mixed", ""},
        {"related", "B3"_octets, "application", related, ""},
        {"the octet that is stray elsewhere", "C2"_octets, "application", "vnd.syncml.dm+wbxml",
         ""},
        {"not assigned", "FF"_octets, "", "", ""},
        {"what follows is left", "A3 89 61 00"_octets, "application", "vnd.wap.multipart.mixed", "",
         3},
    });
}

TEST(ContentTypeValue, ReadsTypeAndStartInAnyOrder)
{
    expectRelated({
        {"start first", "0B B3 8A"_octets + text("<a>") + "89"_octets + text("b/c"), "", "",
         "type=b/c;start=<a>"},
        {"type first", "0B B3 89"_octets + text("b/c") + "8A"_octets + text("<a>"), "", "",
         "type=b/c;start=<a>"},
        {"type alone", "06 B3 89"_octets + text("b/c"), "", "", "type=b/c;start="},
        {"start alone", "06 B3 8A"_octets + text("<a>"), "", "", "type=;start=<a>"},
        {"empty texts", "05 B3 8A 00 89 00"_octets, "", "", noParameters},
        {"the last of two", "07 B3 89 61 00 89 62 00"_octets, "", "", "type=b;start="},
        {"without high bits", "06 33 0A 61 00 09 00"_octets, "", "", "type=;start=a"},
        {"length in a uintvar", "1F 04 B3 8A 61 00"_octets, "", "", "type=;start=a"},
        {"long length", "1F 20 B3 89"_octets + octet('x', 29) + "00"_octets, "", "",
         "type=" + QString(29, 'x') + ";start="},
    });
}

TEST(ContentTypeValue, SetsEmptyParametersWithoutAny)
{
    expectRelated({
        {"length 1", "01 B3"_octets, "", "", noParameters},
        {"length 0", "00 B3"_octets, "", "", noParameters},
        {"length 1 and a body", "01 B3 05"_octets, "", "", noParameters, 1},
    });
}

TEST(ContentTypeValue, DropsAQuoteOnlyBeforeStart)
{
    expectRelated({
        {"start", "05 B3 8A 22 61 00"_octets, "", "", "type=;start=a"},
        {"only the first", "06 B3 8A 22 22 61 00"_octets, "", "", "type=;start=\"a"},
        {"quote and nothing", "04 B3 8A 22 00"_octets, "", "", noParameters},
        {"a closing quote stays", "06 B3 8A 22 61 22 00"_octets, "", "", "type=;start=a\""},
        {"counted as one octet", "06 B3 8A 22 61 00 77 66"_octets, "", "", "type=;start=a", 1},
        {"not before type", "05 B3 89 22 61 00"_octets, "", "", "type=\"a;start="},
    });
}

TEST(ContentTypeValue, ToleratesAMediaOctetEncodedAsUtf8)
{
    expectRelated({
        {"before the media octet", "04 C2 B3 8A 61 00"_octets, "", "", "type=;start=a"},
        {"after the media octet", "04 B3 C2 8A 61 00"_octets, "", "", "type=;start=a"},
        {"before and after", "04 C2 B3 C2 8A 61 00"_octets, "", "", "type=;start=a"},
        {"after it without parameters", "01 B3 C2 07"_octets, "", "", noParameters, 1},
        {"counted in the length it costs an octet after", "05 C2 B3 8A 61 00 77 66"_octets, "", "",
         "type=;start=a", 1},
        {"not before a parameter", "05 B3 81 C2 8A 00"_octets, "", "", noParameters},
    });
}

TEST(ContentTypeValue, ConsumesOnlyTheOctetOfAnUnknownParameter)
{
    expectRelated({
        {"charset", "06 B3 81 EA 8A 61 00"_octets, "", "", "type=;start=a"},
        {"a text reads on as parameters", "05 B3 85 61 0A 00"_octets, "", "", noParameters},
    });
}

TEST(ContentTypeValue, CountsTextsInCharactersWithoutTheirQuote)
{
    // The octet after the value is read as a parameter, because the text's quote was not counted.
    expectRelated({
        {"quoted type", "05 B3 89 7F 61 00 77 66"_octets, "", "", "type=a;start=", 1},
        {"quoted start", "05 B3 8A 7F 61 00 77 66"_octets, "", "", "type=;start=a", 1},
        {"text longer than the length", "03 B3 89 61 62 00"_octets, "", "", "type=ab;start="},
    });
}

TEST(ContentTypeValue, ReadsATextWithoutTerminatorToTheEnd)
{
    expectRelated({
        {"type", "04 B3 89 61"_octets, "", "", "type=a;start=", -1},
        {"start", "05 B3 8A 61 62"_octets, "", "", "type=;start=ab", -1},
        {"empty type", "02 B3 89"_octets, "", "", noParameters, -1},
        {"empty start", "02 B3 8A"_octets, "", "", noParameters, -1},
    });
}

struct FailureRow
{
    const char *name;
    QByteArray octets;
    QString type; // after the failed read
};

void expectFailure(unsigned char result, const std::vector<FailureRow> &rows)
{
    for (const FailureRow &row : rows) {
        SCOPED_TRACE(row.name);
        const auto reading = readValue<ContentTypeField, MMS_CONTENT_TYPE_T>(row.octets);
        EXPECT_EQ(reading.result, result);
        EXPECT_EQ(reading.value.type, row.type);
        EXPECT_EQ(reading.value.subtype, row.type.isEmpty() ? "" : related);
        EXPECT_EQ(reading.value.parameters, "");
    }
}

TEST(ContentTypeValue, SupportsNoOtherMediaInTheGeneralForm)
{
    expectFailure(WireResult::UnsupportedContentType,
                  {
                      {"text/plain with a charset", "03 83 81 EA"_octets, ""},
                      {"mixed", "01 A3"_octets, ""},
                      {"media in letters", "0B"_octets + text("text/plain"), ""},
                      {"media missing", "03"_octets, ""},
                      {"media missing after the stray octet", "03 C2"_octets, ""},
                      {"two stray octets", "03 C2 C2 B3"_octets, ""},
                      {"0x80 is a length", "80 A3"_octets, ""},
                  });
}

TEST(ContentTypeValue, RunsOutOfData)
{
    expectFailure(
        WireResult::OutOfData,
        {
            {"nothing", ""_octets, ""},
            {"uintvar missing", "1F"_octets, ""},
            {"negative length", "1F F8 80 80 80 00 B3"_octets, ""},
            {"negative length, other media", "1F FF FF FF FF 7F A3"_octets, ""},
            {"parameters missing", "05 B3"_octets, "application"},
            {"0x80 is a length", "80 B3 8A 61 00"_octets, "application"},
            {"next parameter missing", "08 B3 8A 61 00"_octets, "application"},
            {"text missing", "05 B3 89"_octets, "application"},
            {"type text truncated, more promised", "09 B3 89 61 62"_octets, "application"},
            {"start text truncated, more promised", "09 B3 8A 61 62"_octets, "application"},
            {"quoted start text truncated", "09 B3 8A 22"_octets, "application"},
            {"largest length", "1F 87 FF FF FF 7F B3 81"_octets, "application"},
        });
}

TEST(ContentTypeValue, RunsOutOfDataPastTheEnd)
{
    Input input(""_octets);
    input.buffer()->readByte();
    MMS_CONTENT_TYPE_T contentType = usedContentType();
    EXPECT_EQ(ContentTypeField::readFrom(input, &contentType), WireResult::OutOfData);
    EXPECT_EQ(contentType.type, "old");
}

// The published buffer returns the octet past its end: here the last octet of each row.
TEST(ContentTypeValue, RunsOutOfDataAfterTheSlackOctet)
{
    const FailureRow rows[] = {
        {"stray octet before the media octet", "04 C2"_octets, ""},
        {"media octet", "01 B3"_octets, "application"},
        {"type parameter", "02 B3 89"_octets, "application"},
        {"start parameter", "02 B3 8A"_octets, "application"},
        {"quote before start", "03 B3 8A 22"_octets, "application"},
    };
    for (const FailureRow &row : rows) {
        SCOPED_TRACE(row.name);
        const HeapBlock block(row.octets);
        LinearBuffer buffer(block.data(), block.size() - 1);
        MMS_CONTENT_TYPE_T contentType;
        EXPECT_EQ(ContentTypeField::readFrom(&buffer, &contentType), WireResult::OutOfData);
        EXPECT_EQ(contentType.type, row.type);
        EXPECT_EQ(contentType.parameters, "");
    }
}

struct WriteRow
{
    const char *name;
    MMS_CONTENT_TYPE_T contentType;
    QByteArray octets; // with the field code
};

MMS_CONTENT_TYPE_T relatedWith(const QString &parameters)
{
    return {"application", related, parameters};
}

const std::vector<WriteRow> &writeRows()
{
    static const std::vector<WriteRow> rows{
        {"mixed", {"application", "vnd.wap.multipart.mixed", ""}, "84 A3"_octets},
        {"plain text", {"text", "plain", "type=a;start=b"}, "84 83"_octets},
        {"code 0 wraps to no code", {"*", "*", ""}, "84 80"_octets},
        {"unknown", {"x", "y", ""}, "84 7F"_octets},
        {"empty", {"", "", ""}, "84 7F"_octets},
        {"related without parameters", relatedWith(""), "84 05 B3 8A 00 89 00"_octets},
        {"start of 4 and type of 16 characters", relatedWith("type=application/smil;start=<ab>"),
         "84 19 B3 8A"_octets + text("<ab>") + "89"_octets + text("application/smil")},
        {"start before type whatever the parameters' order", relatedWith("start=a;type=b"),
         "84 07 B3 8A 61 00 89 62 00"_octets},
        {"longest short length",
         relatedWith("type=" + QString(12, 'x') + ";start=" + QString(13, 'y')),
         "84 1E B3 8A"_octets + octet('y', 13) + "00 89"_octets + octet('x', 12) + "00"_octets},
        {"first long length",
         relatedWith("type=" + QString(13, 'x') + ";start=" + QString(13, 'y')),
         "84 1F 1F B3 8A"_octets + octet('y', 13) + "00 89"_octets + octet('x', 13) + "00"_octets},
        {"a quote that the length does not count", relatedWith("type=;start=é"),
         "84 07 B3 8A 7F C3 A9 00 89 00"_octets},
        {"two such quotes", relatedWith("type=é;start=é"),
         "84 09 B3 8A 7F C3 A9 00 89 7F C3 A9 00"_octets},
        {"up to the first NUL", relatedWith(QStringLiteral("type=;start=a\0b")),
         "84 06 B3 8A 61 00 89 00"_octets},
    };
    return rows;
}

TEST(ContentTypeValue, WritesTheFieldCodeAndTheValue)
{
    for (const WriteRow &row : writeRows()) {
        SCOPED_TRACE(row.name);
        const Writing writing = writeValue<ContentTypeField>(row.contentType);
        EXPECT_EQ(writing.result, WireResult::Written);
        EXPECT_EQ(writing.octets, row.octets);
    }
}

TEST(ContentTypeValue, ReturnsTheSizeWithoutTheFieldCode)
{
    for (const WriteRow &row : writeRows())
        EXPECT_EQ(ContentTypeField::sizeOf(row.contentType), row.octets.size() - 1) << row.name;
}

TEST(ContentTypeValue, ReturnsWrittenWhenNothingFits)
{
    Output full(0);
    EXPECT_EQ(ContentTypeField::writeTo(full, relatedWith("type=a;start=b")), WireResult::Written);
    EXPECT_EQ(full.octets(), ""_octets);
}

TEST(ContentTypeValue, ReadsItsOwnQuotedTextsToTheEnd)
{
    // Writer and reader do not count the same quotes, so the cursor ends at the end of the value.
    const QByteArray octets = octetsOf<ContentTypeField>(relatedWith("type=é;start=é")).mid(1);
    const auto reading = readValue<ContentTypeField, MMS_CONTENT_TYPE_T>(octets);
    EXPECT_EQ(reading.result, WireResult::Read);
    EXPECT_EQ(reading.position, octets.size());
    EXPECT_EQ(reading.value.parameters, QStringLiteral("type=\u00C3\u00A9;start=\u00C3\u00A9"));
}

TEST(ContentTypeParameters, EndAtTheNextSemicolon)
{
    struct
    {
        QString parameters, type, start;
    } const rows[] = {
        {"", "", ""},
        {"type=a;start=b", "a", "b"},
        {"start=b;type=a", "a", "b"},
        {"type=a", "a", ""},
        {"start=b", "", "b"},
        {"type=", "", ""},
        {"type=;start=", "", ""},
        {"type=a;", "a", ""},
        {";;type=a;start=b;c", "a", "b"},
        {"type=a;type=c;start=b;start=d", "a", "b"},
        {"TYPE=a;Start=b", "", ""},
        {"mytype=a;restart=b", "a", "b"},
        {"type=start=b", "start=b", "b"},
        {"type =a;start", "", ""},
        {"type=a b/c;start=<x@y>", "a b/c", "<x@y>"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.parameters));
        EXPECT_EQ(ContentTypeField::mprtOf(row.parameters), row.type);
        EXPECT_EQ(ContentTypeField::startOf(row.parameters), row.start);
    }
}

void setContentType(MMS_UA_UAMsg &msg, const MMS_CONTENT_TYPE_T &contentType)
{
    msg.setContentType(contentType.type);
    msg.setContentSubType(contentType.subtype);
    msg.setContentTypeParams(contentType.parameters);
}

TEST(ContentTypeField, StoresAValueThatHasAType)
{
    struct
    {
        const char *name;
        QByteArray octets;
        unsigned char result;
        bool stored;
        MMS_CONTENT_TYPE_T contentType;
    } const rows[] = {
        {"one octet", "A3"_octets, 0, true, {"application", "vnd.wap.multipart.mixed", ""}},
        {"related", "04 B3 8A 61 00"_octets, 0, true, relatedWith("type=;start=a")},
        {"not assigned", "FF"_octets, 0, false, usedContentType()},
        {"not supported", "01 A3"_octets, 7, false, usedContentType()},
        {"ran out before the media", "1F"_octets, 9, false, usedContentType()},
        {"ran out in the parameters", "08 B3 8A 61 00"_octets, 9, true, relatedWith("")},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        setContentType(msg, usedContentType());
        EXPECT_EQ(readField(makeField<ContentTypeField>, row.octets, msg).result, row.result);
        EXPECT_EQ(msg.getFieldsPresent(), row.stored ? 0x00000008u : 0u);
        EXPECT_EQ(msg.getContentType(), row.contentType.type);
        EXPECT_EQ(msg.getContentSubType(), row.contentType.subtype);
        EXPECT_EQ(msg.getContentTypeParams(), row.contentType.parameters);
    }
}

TEST(ContentTypeField, WritesTheRecordsContentTypeAndReturnsItsSize)
{
    for (const WriteRow &row : writeRows()) {
        SCOPED_TRACE(row.name);
        MMS_UA_UAMsg msg;
        setContentType(msg, row.contentType);
        const Writing writing = writeField(makeField<ContentTypeField>, msg);
        EXPECT_EQ(writing.result, WireResult::Written);
        EXPECT_EQ(writing.octets, row.octets);
        EXPECT_EQ(ContentTypeField().fieldSize(&msg), row.octets.size());
    }
}

} // namespace
