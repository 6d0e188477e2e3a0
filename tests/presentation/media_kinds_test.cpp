#include "presentation/media_kinds.h"

#include <gtest/gtest.h>

TEST(MediaKinds, AreIndexedByTheirNumbers)
{
    for (int type = 0; type < SMIL_MEDIA_UNKNOWN; ++type) {
        ASSERT_TRUE(qvlMediaKind(type));
        EXPECT_EQ(qvlMediaKind(type)->type, type);
    }
}

TEST(MediaKinds, HaveNoRowForOtherNumbers)
{
    for (int type : {-1, int(SMIL_MEDIA_UNKNOWN), 1000})
        EXPECT_EQ(qvlMediaKind(type), nullptr) << type;
}

TEST(MediaKinds, NameTheMainTypeOfTheirCode)
{
    for (const QvlMediaKind &kind : qvlMediaKinds) {
        QCString mainType;
        ASSERT_TRUE(EMAIL_Util::typeEnumToStr(kind.mainTypeCode, mainType)) << kind.type;
        if (!kind.mainType.isEmpty()) {
            EXPECT_EQ(QString::fromLatin1(mainType), kind.mainType);
        }
    }
}
