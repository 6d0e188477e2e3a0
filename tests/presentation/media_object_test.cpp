/*
 * Media objects and their params: fields, reading an element, new content, copying. Streams and
 * ownership have their own test files.
 */
#include "presentation/media_object.h"

#include "presentation/model_facts.h"
#include "presentation/smil_result.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <tuple>

TEST(MediaElementType, NumbersAreFixed)
{
    EXPECT_EQ(SMIL_MEDIA_AUDIO, 0);
    EXPECT_EQ(SMIL_MEDIA_VIDEO, 1);
    EXPECT_EQ(SMIL_MEDIA_TEXT, 2);
    EXPECT_EQ(SMIL_MEDIA_IMAGE, 3);
    EXPECT_EQ(SMIL_MEDIA_REF, 4);
    EXPECT_EQ(SMIL_MEDIA_UNKNOWN, 5);
}

TEST(MediaParam, ValueTypeNumbersAreFixed)
{
    EXPECT_EQ(SMIL_PARAM_VALUE_DATA, 0);
    EXPECT_EQ(SMIL_PARAM_VALUE_REF, 1);
    EXPECT_EQ(SMIL_PARAM_VALUE_OBJECT, 2);
    EXPECT_EQ(SMIL_PARAM_VALUE_UNKNOWN, 3);
}

TEST(MediaParam, NewOneIsEmptyData)
{
    EXPECT_EQ(factsOf(Param()), "||0|");
}

TEST(MediaParam, ConstructorAndSetAllTakeEverything)
{
    EXPECT_EQ(factsOf(Param("n", "v", SMIL_PARAM_VALUE_OBJECT, "r")), "n|v|2|r");
    Param param;
    EXPECT_TRUE(param.setAll("n", "v", SMIL_PARAM_VALUE_REF, "r"));
    EXPECT_EQ(factsOf(param), "n|v|1|r");
}

TEST(MediaParam, SettersChangeTheirOwnField)
{
    Param param("n", "v", SMIL_PARAM_VALUE_DATA, "r");
    param.setName("N");
    EXPECT_EQ(factsOf(param), "N|v|0|r");
    param.setValue("V");
    EXPECT_EQ(factsOf(param), "N|V|0|r");
    param.setValueType(SMIL_PARAM_VALUE_UNKNOWN);
    EXPECT_EQ(factsOf(param), "N|V|3|r");
    EXPECT_TRUE(param.setRefValueType(" R "));
    EXPECT_EQ(factsOf(param), "N|V|3| R ");
}

TEST(MediaParam, ValueTypeKeywordIsComparedExactly)
{
    const std::pair<QString, QString> rows[] = {
        {"data", "0"},    {"ref", "1"},     {"object", "2"}, {"", "3"},
        {QString(), "3"}, {"Data", "3"},    {"REF", "3"},    {" data", "3"},
        {"ref ", "3"},    {"objects", "3"}, {"dat", "3"},    {"value", "3"},
    };
    for (const auto &[keyword, number] : rows) {
        SCOPED_TRACE(keyword.toStdString());
        Object object(nullptr);
        EXPECT_EQ(object.appendParamElem("n", "v", keyword, "r"), SmilResult::Ok);
        EXPECT_EQ(paramsOf(object), QStringList("n|v|" + number + "|r"));
    }
}

TEST(MediaObject, NewOneIsUnknownAndEmpty)
{
    Multipart multipart;
    const Object object(&multipart);
    EXPECT_EQ(factsOf(object), ObjectFacts());
    EXPECT_TRUE(object.getBeginTimeEvent().isNull());
    EXPECT_TRUE(object.getEndTimeEvent().isNull());
    EXPECT_EQ(object.getData(), nullptr);
    EXPECT_EQ(object.getMultiPart(), &multipart);
    EXPECT_EQ(Object(nullptr).getMultiPart(), nullptr);
}

namespace {

struct SetterRow
{
    const char *what;
    bool (*set)(Object &);
    ObjectFacts facts;
};

const SetterRow SetterRows[] = {
    {"kind", [](Object &o) { return o.setMediaElementType(SMIL_MEDIA_REF); }, {.type = 4}},
    {"media type", [](Object &o) { return o.setMediaType(" x "); }, {.mediaType = " x "}},
    {"src sets alt too", [](Object &o) { return o.setSrc(" x "); }, {.src = " x ", .alt = " x "}},
    {"region", [](Object &o) { return o.setRegionId("x"); }, {.region = "x"}},
    {"MIME type", [](Object &o) { return o.setMimeType("x"); }, {.mime = "x"}},
    {"alt", [](Object &o) { return o.setAlt("x"); }, {.alt = "x"}},
    {"begin type",
     [](Object &o) { return o.setBeginTimeType(SMIL_TIME_INVALID); },
     {.begin = {.type = 3}}},
    {"begin event", [](Object &o) { return o.setBeginTimeEvent("x"); }, {.begin = {.event = "x"}}},
    {"begin length", [](Object &o) { return o.setBeginTimeLength(-7); }, {.begin = {.length = -7}}},
    {"end type",
     [](Object &o) { return o.setEndTimeType(SMIL_TIME_OFFSET); },
     {.end = {.type = 0}}},
    {"end event", [](Object &o) { return o.setEndTimeEvent("x"); }, {.end = {.event = "x"}}},
    {"end length", [](Object &o) { return o.setEndTimeLength(7); }, {.end = {.length = 7}}},
};

} // namespace

TEST(MediaObject, SettersChangeTheirOwnFieldAndReturnTrue)
{
    for (const SetterRow &row : SetterRows) {
        SCOPED_TRACE(row.what);
        Object object(nullptr);
        EXPECT_TRUE(row.set(object));
        EXPECT_EQ(factsOf(object), row.facts);
    }
}

TEST(MediaObject, GettersOfSingleTimeFieldsAgreeWithTheTime)
{
    Object object(nullptr);
    object.setBeginTimeType(SMIL_TIME_EVENT);
    object.setBeginTimeEvent("b");
    object.setBeginTimeLength(1);
    object.setEndTimeType(SMIL_TIME_OFFSET);
    object.setEndTimeEvent("e");
    object.setEndTimeLength(2);
    EXPECT_EQ(factsOf(object.getBegin()),
              (TimeFacts{object.getBeginTimeType(), object.getBeginTimeEvent(),
                         object.getBeginTimeLength()}));
    EXPECT_EQ(factsOf(object.getBegin()), (TimeFacts{1, "b", 1}));
    EXPECT_EQ(
        factsOf(object.getEnd()),
        (TimeFacts{object.getEndTimeType(), object.getEndTimeEvent(), object.getEndTimeLength()}));
    EXPECT_EQ(factsOf(object.getEnd()), (TimeFacts{0, "e", 2}));
}

TEST(MediaObject, OnlyTextSetsTheMediaType)
{
    for (const char letter : QByteArray("avtir?")) {
        Object object(nullptr);
        object.setMediaType("before");
        object.setMediaElementType(kindOf(letter));
        EXPECT_EQ(object.getMediaType(), letter == 't' ? "txt" : "before") << letter;
    }
}

TEST(MediaObject, NewSrcResetsTheAlternativeText)
{
    Object object(nullptr);
    object.setAlt("a picture");
    object.setSrc("a.jpg");
    EXPECT_EQ(object.getAlt(), "a.jpg");
    object.setAlt("a picture");
    EXPECT_EQ(object.getSrc(), "a.jpg");
    EXPECT_EQ(object.getAlt(), "a picture");
}

TEST(MediaObject, BindingAPartDoesNotCountAsAUse)
{
    Multipart multipart;
    Part *part = addPart(multipart, {.location = "a"});
    Object object(nullptr);
    EXPECT_TRUE(object.setData(part));
    EXPECT_EQ(object.getData(), part);
    EXPECT_EQ(factsOf(*part), (PartFacts{.location = "a"}));
    EXPECT_TRUE(object.setData(nullptr));
    EXPECT_EQ(object.getData(), nullptr);
}

TEST(MediaObject, MessageCanBeReplaced)
{
    Multipart multipart;
    Object object(nullptr);
    EXPECT_TRUE(object.setMultiPart(&multipart));
    EXPECT_EQ(object.getMultiPart(), &multipart);
    EXPECT_TRUE(object.setMultiPart(nullptr));
    EXPECT_EQ(object.getMultiPart(), nullptr);
}

TEST(MediaObjectParams, StayInOrderAndCanBeDeletedByIndex)
{
    Object object(nullptr);
    EXPECT_EQ(object.appendParamElem("a", "1", SMIL_PARAM_VALUE_REF, "t"), SmilResult::Ok);
    EXPECT_EQ(object.appendParamElem("b", "2", "object", ""), SmilResult::Ok);
    EXPECT_EQ(object.appendParamElem("a", "3", SMIL_PARAM_VALUE_DATA, ""), SmilResult::Ok);
    EXPECT_EQ(paramsOf(object), (QStringList{"a|1|1|t", "b|2|2|", "a|3|0|"}));
    EXPECT_TRUE(object.deleteParamElem(1));
    EXPECT_EQ(paramsOf(object), (QStringList{"a|1|1|t", "a|3|0|"}));
    for (const int index : {-1, 2, 100}) {
        EXPECT_EQ(object.getParam(index), nullptr);
        EXPECT_FALSE(object.deleteParamElem(index));
    }
    EXPECT_EQ(object.getParamCount(), 2);
}

namespace {

std::unique_ptr<Object> objectWithTwoParamsOfOneName()
{
    auto object = std::make_unique<Object>(nullptr);
    object->appendParamElem("other", "0", SMIL_PARAM_VALUE_DATA, "");
    object->appendParamElem("n", "1", SMIL_PARAM_VALUE_REF, "t");
    object->appendParamElem("n", "2", SMIL_PARAM_VALUE_DATA, "");
    return object;
}

} // namespace

TEST(MediaObjectParams, UpdateChangesTheValueOfTheFirstOfItsName)
{
    const auto object = objectWithTwoParamsOfOneName();
    EXPECT_EQ(object->updateParamByName("n", "new"), SmilResult::Ok);
    EXPECT_EQ(paramsOf(*object), (QStringList{"other|0|0|", "n|new|1|t", "n|2|0|"}));
}

TEST(MediaObjectParams, UpdateOfAnUnknownNameAppendsData)
{
    const auto object = objectWithTwoParamsOfOneName();
    EXPECT_EQ(object->updateParamByName("N", "new"), SmilResult::Ok);
    EXPECT_EQ(object->updateParamByName("", "nameless"), SmilResult::Ok);
    EXPECT_EQ(paramsOf(*object),
              (QStringList{"other|0|0|", "n|1|1|t", "n|2|0|", "N|new|0|", "|nameless|0|"}));
}

TEST(MediaObjectParams, ValueComesFromTheFirstOfItsName)
{
    const auto object = objectWithTwoParamsOfOneName();
    const std::pair<const char *, const char *> rows[] = {
        {"n", "1"}, {"other", "0"}, {"N", ""}, {"", ""}, {" n", ""}};
    for (const auto &[name, value] : rows)
        EXPECT_EQ(object->getParamValueByName(name), value) << name;
}

TEST(MediaObjectParams, RemoveRemovesTheFirstOfItsName)
{
    const auto object = objectWithTwoParamsOfOneName();
    object->removeParamByName("N");
    EXPECT_EQ(object->getParamCount(), 3);
    object->removeParamByName("n");
    EXPECT_EQ(paramsOf(*object), (QStringList{"other|0|0|", "n|2|0|"}));
    object->removeParamByName("n");
    object->removeParamByName("n");
    EXPECT_EQ(paramsOf(*object), QStringList("other|0|0|"));
}

TEST(MediaObjectFromElement, KindComesFromTheTag)
{
    const std::tuple<QString, int, QString> rows[] = {
        {"audio", 0, ""},     {"video", 1, ""}, {"text", 2, "txt"}, {"img", 3, ""},
        {"ref", 4, ""},       {"image", 5, ""}, {"IMG", 5, ""},     {"Text", 5, ""},
        {" text ", 2, "txt"}, {"par", 5, ""},
    };
    for (const auto &[tag, type, mediaType] : rows) {
        SCOPED_TRACE(tag.toStdString());
        Object object(nullptr);
        EXPECT_EQ(object.setObjectElem(Element(tag), nullptr), SmilResult::NotInMessage);
        EXPECT_EQ(factsOf(object), (ObjectFacts{.type = type, .mediaType = mediaType}));
    }
}

TEST(MediaObjectFromElement, AttributesAreTrimmedAndAltIsNotTheSrc)
{
    Multipart multipart;
    Part *part = addPart(multipart, {.location = "a.jpg"});
    Element element("img",
                    {{"src", " a.jpg\n"},
                     {"alt", "\ta b "},
                     {"region", " Image "},
                     {"begin", " 2s "},
                     {"end", " id(x)(end) "},
                     {"type", "image/jpeg"}});
    Object object(nullptr);
    EXPECT_EQ(object.setObjectElem(element, &multipart), SmilResult::Ok);
    EXPECT_EQ(factsOf(object),
              (ObjectFacts{.type = 3,
                           .src = "a.jpg",
                           .region = "Image",
                           .begin = {0, "", 2000},
                           .end = {1, "x", -1},
                           .alt = "a b"}));
    EXPECT_EQ(object.getData(), part);
    EXPECT_EQ(object.getMultiPart(), &multipart);
}

TEST(MediaObjectFromElement, AbsentAttributesAreNull)
{
    Object object(nullptr);
    object.setSrc("before");
    object.setRegionId("before");
    object.setObjectElem(Element("img"), nullptr);
    EXPECT_TRUE(object.getSrc().isNull());
    EXPECT_TRUE(object.getAlt().isNull());
    EXPECT_TRUE(object.getRegionId().isNull());
}

TEST(MediaObjectFromElement, NullReturnsNotInMessage)
{
    Multipart multipart;
    addPart(multipart, {});
    Object object(nullptr);
    EXPECT_EQ(object.setObjectElem(nullptr, &multipart), SmilResult::NotInMessage);
    EXPECT_EQ(factsOf(object), ObjectFacts());
    EXPECT_EQ(object.getData(), nullptr);
}

TEST(MediaObjectFromElement, ParamsAreNotRead)
{
    Multipart multipart;
    addPart(multipart, {.location = "a"});
    Element element("text", {{"src", "a"}});
    element.appendChild("param", {{"name", "n"}, {"value", "v"}});
    Object object(nullptr);
    EXPECT_EQ(object.setObjectElem(element, &multipart), SmilResult::Ok);
    EXPECT_EQ(object.getParamCount(), 0);
}

TEST(MediaObjectFromElement, WithoutContentKeepsAttributesButNoTimes)
{
    Multipart multipart;
    addPart(multipart, {.location = "b"});
    for (Multipart *message : {static_cast<Multipart *>(nullptr), &multipart}) {
        Object object(nullptr);
        Element element(
            "text", {{"src", "a"}, {"alt", "b"}, {"region", "c"}, {"begin", "1s"}, {"end", "2s"}});
        EXPECT_EQ(object.setObjectElem(element, message), SmilResult::NotInMessage);
        EXPECT_EQ(
            factsOf(object),
            (ObjectFacts{.type = 2, .mediaType = "txt", .src = "a", .region = "c", .alt = "b"}));
        EXPECT_EQ(object.getData(), nullptr);
        EXPECT_EQ(object.getMultiPart(), message);
    }
    EXPECT_EQ(factsOf(multipart), (QList<PartFacts>{{.location = "b"}}));
}

namespace {

struct BindingRow
{
    const char *what;
    QList<PartFacts> parts;
    QString src;
    int bound; // index, or -1
};

const BindingRow BindingRows[] = {
    {"attachment", {{.location = "a"}}, "a", 0},
    {"shown", {{.location = "a", .display = 0}}, "a", 0},
    {"attachment before a shown one", {{.location = "a", .display = 0}, {.location = "a"}}, "a", 1},
    {"first attachment", {{.location = "a"}, {.location = "a"}}, "a", 0},
    {"first shown one", {{.location = "a", .display = 0}, {.location = "a", .display = 0}}, "a", 0},
    {"location in other case", {{.location = "A.JPG"}}, "a.jpg", 0},
    {"Content-ID", {{.id = "<x>"}}, "cid:X", 0},
    {"other display type", {{.location = "a", .display = 2}}, "a", -1},
    {"no such name", {{.location = "b"}}, "a", -1},
    {"no src", {{.location = ""}}, "", -1},
};

} // namespace

TEST(MediaObjectFromElement, PrefersAnAttachmentToAShownPart)
{
    for (const BindingRow &row : BindingRows) {
        SCOPED_TRACE(row.what);
        Multipart multipart;
        appendParts(multipart, row.parts);
        Object object(nullptr);
        const int result = object.setObjectElem(Element("img", {{"src", row.src}}), &multipart);
        EXPECT_EQ(result, row.bound < 0 ? SmilResult::NotInMessage : SmilResult::Ok);
        EXPECT_EQ(object.getData(), multipart.getBodypartByIndex(row.bound));
    }
}

TEST(MediaObjectFromElement, ShownPartGainsAUseAndAttachmentBecomesShown)
{
    for (const int display : {Part::Shown, Part::Attachment}) {
        SCOPED_TRACE(display);
        Multipart multipart;
        Part *part = addPart(multipart, {.location = "a", .display = display});
        Object first(nullptr);
        Object second(nullptr);
        EXPECT_EQ(first.setObjectElem(Element("img", {{"src", "a"}}), &multipart), SmilResult::Ok);
        EXPECT_EQ(part->getRefCount(), display == Part::Shown ? 2 : 1);
        EXPECT_EQ(part->getDispFileType(), 0);
        EXPECT_EQ(second.setObjectElem(Element("img", {{"src", "a"}}), &multipart), SmilResult::Ok);
        EXPECT_EQ(part->getRefCount(), display == Part::Shown ? 3 : 2);
        EXPECT_EQ(part->getDispFileType(), 0);
    }
}

TEST(MediaObjectFromElement, ReferenceCountStopsAtItsLargestValue)
{
    constexpr int largest = std::numeric_limits<int>::max();
    const std::pair<int, int> rows[] = {{largest, largest},
                                        {largest - 1, largest},
                                        {std::numeric_limits<int>::min(), -largest},
                                        {-1, 0},
                                        {0, 1}};
    for (const auto &[before, after] : rows) {
        SCOPED_TRACE(before);
        Multipart multipart;
        Part *part = addPart(multipart, {.location = "a", .display = 0, .refCount = before});
        Object object(nullptr);
        EXPECT_EQ(object.setObjectElem(Element("img", {{"src", "a"}}), &multipart), 0);
        EXPECT_EQ(part->getRefCount(), after);
    }
}

TEST(MediaObjectFromElement, AbsentOrUnreadableTimeSetsTheKindAndLeavesTheLength)
{
    const std::tuple<const char *, QString, TimeFacts> rows[] = {
        {"absent", {}, {2, "before", 7}}, {"blank", "  ", {2, "before", 7}},
        {"unreadable", "10", {3, "", 7}}, {"unreadable event", "id(x)(y)", {3, "x", 7}},
        {"offset", "1s", {0, "", 1000}},
    };
    for (const auto &[what, text, time] : rows) {
        SCOPED_TRACE(what);
        Multipart multipart;
        addPart(multipart, {.location = "a"});
        Object object(nullptr);
        object.setBeginTimeEvent("before");
        object.setBeginTimeLength(7);
        object.setEndTimeEvent("before");
        object.setEndTimeLength(7);
        Element element("img", {{"src", "a"}, {"begin", text}, {"end", text}});
        EXPECT_EQ(object.setObjectElem(element, &multipart), SmilResult::Ok);
        EXPECT_EQ(factsOf(object.getBegin()), time);
        EXPECT_EQ(factsOf(object.getEnd()), time);
    }
}

TEST(MediaObjectFromContent, AppendsAShownPartToTheMessage)
{
    const std::tuple<char, QString, QString> rows[] = {
        {'a', "audio", ""}, {'v', "video", ""},       {'t', "text", "txt"},
        {'i', "image", ""}, {'r', "application", ""}, {'?', "application", ""},
    };
    for (const auto &[letter, type, mediaType] : rows) {
        SCOPED_TRACE(letter);
        Multipart multipart;
        addPart(multipart, {.location = "d/s.x"});
        Object object(nullptr);
        EXPECT_TRUE(object.setData("r", "d/s.x", kindOf(letter), "sub", "octets", &multipart));
        EXPECT_EQ(factsOf(object),
                  (ObjectFacts{.type = kindOf(letter),
                               .mediaType = mediaType,
                               .src = "d/s.x",
                               .region = "r",
                               .alt = "d/s.x"}));
        EXPECT_EQ(factsOf(multipart),
                  (QList<PartFacts>{{.location = "d/s.x"},
                                    {.format = type + "/sub",
                                     .location = "d/s.x",
                                     .name = "s.x",
                                     .data = "octets",
                                     .display = 0}}));
        EXPECT_EQ(object.getData(), multipart.getBodypartByIndex(1));
        EXPECT_EQ(object.getMultiPart(), &multipart);
    }
}

TEST(MediaObjectFromContent, OverwritesTheBoundPartInPlace)
{
    Multipart multipart;
    Multipart other;
    Part *part = addPart(multipart,
                         {.format = "x/y",
                          .charset = "utf-8",
                          .location = "old",
                          .id = "<id>",
                          .name = "old",
                          .data = "old",
                          .refCount = 3});
    Object object(&multipart);
    object.setData(part);
    EXPECT_TRUE(object.setData("", "new", SMIL_MEDIA_IMAGE, "png", "octets", &other));
    EXPECT_EQ(object.getData(), part);
    EXPECT_EQ(object.getMultiPart(), &other);
    EXPECT_EQ(other.getPartCount(), 0);
    EXPECT_EQ(factsOf(multipart),
              (QList<PartFacts>{{.format = "image/png",
                                 .charset = "utf-8",
                                 .location = "new",
                                 .id = "<id>",
                                 .name = "new",
                                 .data = "octets",
                                 .display = 0,
                                 .refCount = 3}}));
}

TEST(MediaObjectFromContent, KeepsTimesParamsAndMimeType)
{
    Multipart multipart;
    Object object(nullptr);
    object.setMimeType("m");
    object.setEndTimeLength(7);
    object.appendParamElem("n", "v", SMIL_PARAM_VALUE_DATA, "");
    EXPECT_TRUE(object.setData("r", "s", SMIL_MEDIA_AUDIO, "x", "", &multipart));
    EXPECT_EQ(factsOf(object),
              (ObjectFacts{.type = 0,
                           .src = "s",
                           .region = "r",
                           .mime = "m",
                           .end = {.length = 7},
                           .alt = "s",
                           .params = {"n|v|0|"}}));
}

TEST(MediaObjectFromContent, SharesTheOctets)
{
    Multipart multipart;
    const QByteArray octets("octets");
    Object object(nullptr);
    EXPECT_TRUE(object.setData("", "s", SMIL_MEDIA_TEXT, "plain", octets, &multipart));
    EXPECT_EQ(object.getData()->getBodyData().constData(), octets.constData());
}

namespace {

void fillForCopy(Object &object)
{
    object.setMediaElementType(SMIL_MEDIA_TEXT);
    object.setMediaType("special");
    object.setSrc("a");
    object.setRegionId("r");
    object.setMimeType("m");
    object.setBeginTimeType(SMIL_TIME_OFFSET);
    object.setBeginTimeEvent("begin");
    object.setBeginTimeLength(1);
    object.setEndTimeType(SMIL_TIME_EVENT);
    object.setEndTimeEvent("end");
    object.setEndTimeLength(2);
    object.setAlt("alt");
    object.appendParamElem("n", "1", SMIL_PARAM_VALUE_REF, "t");
    object.appendParamElem("n", "2", SMIL_PARAM_VALUE_UNKNOWN, "");
}

} // namespace

TEST(MediaObjectCopy, EndTimeBecomesTheBeginTimeAndTheEndTimeStays)
{
    Multipart multipart;
    Part *part = addPart(multipart, {.location = "a", .display = 0});
    Object source(nullptr);
    fillForCopy(source);
    Object target(nullptr);
    target.setEndTimeType(SMIL_TIME_INVALID);
    target.setEndTimeEvent("own");
    target.setEndTimeLength(9);
    EXPECT_TRUE(source.copyTo(&target, &multipart));
    ObjectFacts expected = factsOf(source);
    expected.begin = {1, "end", 2};
    expected.end = {3, "own", 9};
    EXPECT_EQ(factsOf(target), expected);
    EXPECT_EQ(target.getData(), part);
    EXPECT_EQ(target.getMultiPart(), &multipart);
}

TEST(MediaObjectCopy, KeepsMediaTypeAndAltThatOtherSettersWouldReset)
{
    Multipart multipart;
    addPart(multipart, {.location = "a", .display = 0});
    Object source(nullptr);
    fillForCopy(source);
    Object target(nullptr);
    ASSERT_TRUE(source.copyTo(&target, &multipart));
    EXPECT_EQ(target.getMediaType(), "special");
    EXPECT_EQ(target.getAlt(), "alt");
}

TEST(MediaObjectCopy, ParamsAreAppendedAndThePartGainsNoUse)
{
    Multipart multipart;
    Part *part = addPart(multipart, {.location = "a", .display = 0, .refCount = 2});
    Object source(nullptr);
    fillForCopy(source);
    Object target(nullptr);
    target.appendParamElem("own", "0", SMIL_PARAM_VALUE_DATA, "");
    EXPECT_TRUE(source.copyTo(&target, &multipart));
    EXPECT_EQ(paramsOf(target), (QStringList{"own|0|0|", "n|1|1|t", "n|2|3|"}));
    EXPECT_EQ(part->getRefCount(), 2);
    EXPECT_EQ(part->getDispFileType(), 0);
}

TEST(MediaObjectCopy, NeedsATargetAndAShownPartOfItsSrc)
{
    const std::tuple<const char *, QList<PartFacts>, bool> rows[] = {
        {"shown", {{.location = "A", .display = 0}}, true},
        {"shown after an attachment", {{.location = "a"}, {.location = "a", .display = 0}}, true},
        {"Content-ID", {{.id = "<cid:a>", .display = 0}}, true},
        {"attachment", {{.location = "a"}}, false},
        {"other name", {{.location = "b", .display = 0}}, false},
        {"empty message", {}, false},
    };
    for (const auto &[what, parts, copied] : rows) {
        SCOPED_TRACE(what);
        Multipart multipart;
        appendParts(multipart, parts);
        Object source(nullptr);
        fillForCopy(source);
        Object target(nullptr);
        EXPECT_EQ(source.copyTo(&target, &multipart), copied);
        EXPECT_EQ(factsOf(target) == ObjectFacts(), !copied);
        EXPECT_EQ(target.getMultiPart(), copied ? &multipart : nullptr);
        EXPECT_FALSE(source.copyTo(nullptr, &multipart));
        EXPECT_FALSE(source.copyTo(&target, nullptr));
    }
}

TEST(MediaObjectCopy, OntoItselfDoublesTheParams)
{
    Multipart multipart;
    addPart(multipart, {.location = "a", .display = 0});
    Object object(nullptr);
    fillForCopy(object);
    EXPECT_TRUE(object.copyTo(&object, &multipart));
    EXPECT_EQ(paramsOf(object), (QStringList{"n|1|1|t", "n|2|3|", "n|1|1|t", "n|2|3|"}));
    EXPECT_EQ(factsOf(object.getBegin()), (TimeFacts{1, "end", 2}));
}
