/*
 * JSON as QJsonDocument writes it, except for characters without a visible form.
 */
#include "view/json_writer.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

namespace {

template <typename Value>
std::string written(const Value &value)
{
    JsonWriter json;
    json.beginObject();
    json.member("a", value);
    json.endObject();
    return json.json();
}

std::string writtenByQt(const QJsonValue &value)
{
    return QJsonDocument(QJsonObject{{QStringLiteral("a"), value}})
        .toJson(QJsonDocument::Compact)
        .toStdString();
}

} // namespace

TEST(JsonWriter, EscapesTextsAsQtDoes)
{
    const char16_t *const texts[] = {u"",
                                     u"plain ~",
                                     u"\"quoted\" \\ /",
                                     u"\b\f\n\r\t",
                                     u"\x01\x1F",
                                     u"Grüße 港口 ⚓ \U0001F600",
                                     u"ü\"\\ü",
                                     u"\xD800",
                                     u"\xDC00 \xD83D",
                                     u"\xDE00\xD83D"};
    for (const char16_t *text : texts) {
        const QString string = QString::fromUtf16(text);
        EXPECT_EQ(written(string), writtenByQt(string));
    }
    const QString zero(QChar::Null);
    EXPECT_EQ(written(zero), writtenByQt(zero));
    EXPECT_EQ(written(QString()), writtenByQt(QString()));
}

TEST(JsonWriter, EscapesInvisibleCharacters)
{
    const QString text = QStringLiteral("\x7F\u009B\u202E\U000E0001é");
    EXPECT_EQ(written(text), "{\"a\":\"\\u007f\\u009b\\u202e\\udb40\\udc01é\"}");
}

TEST(JsonWriter, WritesTheShortestNumberThatReadsTheSame)
{
    struct Row
    {
        double number;
        const char *json;
    };
    constexpr Row rows[] = {{0, "0"},
                            {160, "160"},
                            {-1, "-1"},
                            {33.299999237060547, "33.29999923706055"},
                            {1e-7, "1e-07"},
                            {1e20, "1e+20"},
                            {std::numeric_limits<double>::infinity(), "null"},
                            {std::numeric_limits<double>::quiet_NaN(), "null"}};
    for (const Row &row : rows)
        EXPECT_EQ(written(row.number), std::string("{\"a\":") + row.json + '}');
}

TEST(JsonWriter, WritesWholeNumbersAsQtDoes)
{
    for (const double number : {1e5, 1e6, 2e5, -1e5, 1e15, 9007199254740992.0, 9007199254740994.0,
                                1e18, 1e19, -1e19, 4.0, 0.5, 1e-5, 123456.75, -0.0}) {
        const QJsonObject object{{QStringLiteral("a"), number}};
        EXPECT_EQ(written(number),
                  QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString());
    }
}

TEST(JsonWriter, WritesIntegersOfAnySize)
{
    EXPECT_EQ(written(std::numeric_limits<qint64>::min()), "{\"a\":-9223372036854775808}");
    EXPECT_EQ(written(std::numeric_limits<int>::max()), "{\"a\":2147483647}");
    EXPECT_EQ(written(static_cast<unsigned char>(200)), "{\"a\":200}");
}

TEST(JsonWriter, SeparatesMembersAndElements)
{
    JsonWriter json;
    json.beginObject();
    json.key("array");
    json.beginArray();
    json.value(1);
    json.beginObject();
    json.endObject();
    json.beginArray();
    json.endArray();
    json.value("{[:");
    json.value(QStringLiteral("{[:"));
    json.value(true);
    json.endArray();
    json.member("flag", false);
    json.key("object");
    json.beginObject();
    json.member("text", "");
    json.member("null", std::nan(""));
    json.endObject();
    json.endObject();
    EXPECT_EQ(json.json(),
              "{\"array\":[1,{},[],\"{[:\",\"{[:\",true],\"flag\":false,"
              "\"object\":{\"text\":\"\",\"null\":null}}");
}
