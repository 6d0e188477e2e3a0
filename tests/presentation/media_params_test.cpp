#include "presentation/media_params.h"

#include "presentation/media_object.h"

#include <gtest/gtest.h>

TEST(MediaParams, KeywordsOfValueTypesAreIndexedByTheirNumbers)
{
    for (int type = 0; type < SMIL_PARAM_VALUE_UNKNOWN; ++type) {
        const QString keyword = qvlParamValueTypes.at(std::size_t(type));
        EXPECT_EQ(MMS_COMP_SMILMediaObjectParam::valueTypeOf(keyword), type);
    }
    EXPECT_EQ(qvlParamValueTypes[SMIL_PARAM_VALUE_REF], QLatin1StringView("ref"));
    EXPECT_EQ(qvlParamValueTypes[SMIL_PARAM_VALUE_OBJECT], QLatin1StringView("object"));
}

TEST(MediaParams, HaveTheirPublishedNames)
{
    EXPECT_EQ(QvlParamName::pageColor(), "background-color");
    EXPECT_EQ(QvlParamName::textColor(), "foreground-color");
    EXPECT_EQ(QvlParamName::textSize(), "textsize");
}
