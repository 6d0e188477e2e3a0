/*
 * Parts of file names.
 */
#include "platform/comp_util.h"

#include "support/octets.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MMS_COMP_Util, StripsDirectories)
{
    const struct
    {
        QString path;
        QString name;
    } rows[] = {
        {u""_s, u""_s},
        {u"photo.jpg"_s, u"photo.jpg"_s},
        {u"a/photo.jpg"_s, u"photo.jpg"_s},
        {u"/a/b.c/photo.jpg"_s, u"photo.jpg"_s},
        {u"/photo"_s, u"photo"_s},
        {u"a/"_s, u""_s},
        {u"/"_s, u""_s},
        {u"a//b"_s, u"b"_s},
        {u"a\\b"_s, u"a\\b"_s},
        {u"\u00e4/\u20ac.gif"_s, u"\u20ac.gif"_s},
        {u"dir/"_s + QString(10000, u'n'), QString(10000, u'n')},
    };
    for (const auto &[path, name] : rows)
        EXPECT_EQ(MMS_COMP_Util::stripePath(path), name) << path.left(40).toStdString();
}

TEST(MMS_COMP_Util, SplitsNamesAtTheLastDot)
{
    const struct
    {
        QString name;
        QString base;
        QString extension;
    } rows[] = {
        {u"a.jpg"_s, u"a"_s, u"jpg"_s},
        {u"a.b.c"_s, u"a.b"_s, u"c"_s},
        {u".x"_s, u""_s, u"x"_s},
        {u"..x"_s, u"."_s, u"x"_s},
        {u"a..x"_s, u"a."_s, u"x"_s},
        {u"A.JPG"_s, u"A"_s, u"JPG"_s},
        {u"a. "_s, u"a"_s, u" "_s},
        {u"dir/a.jpg"_s, u"dir/a"_s, u"jpg"_s},
        {u"dir.d/a.jpg"_s, u"dir.d/a"_s, u"jpg"_s},
        {u"dir/.x"_s, u"dir/"_s, u"x"_s},
        {u"\u00e4.\u20ac"_s, u"\u00e4"_s, u"\u20ac"_s},
        {u"a."_s + QString(10000, u'e'), u"a"_s, QString(10000, u'e')},
    };
    for (const auto &[name, base, extension] : rows) {
        EXPECT_EQ(MMS_COMP_Util::getExtName(name), extension) << name.left(40).toStdString();
        EXPECT_EQ(MMS_COMP_Util::getNoExtName(name), base) << name.left(40).toStdString();
    }
}

TEST(MMS_COMP_Util, TakesNamesWithoutExtensionWhole)
{
    const QString rows[] = {
        u""_s,       u"a"_s,        u"a."_s, u"a.b."_s,           u"."_s, u".."_s, u"dir.d/a"_s,
        u"dir.d/"_s, u"dir.d/a."_s, u"/"_s,  QString(10000, u'.')};
    for (const QString &name : rows) {
        EXPECT_EQ(MMS_COMP_Util::getExtName(name), u""_s) << name.left(40).toStdString();
        EXPECT_EQ(MMS_COMP_Util::getNoExtName(name), name) << name.left(40).toStdString();
    }
}

TEST(MMS_COMP_Util, TakeNullTexts)
{
    EXPECT_TRUE(MMS_COMP_Util::stripePath(QString()).isEmpty());
    EXPECT_TRUE(MMS_COMP_Util::getExtName(QString()).isEmpty());
    EXPECT_TRUE(MMS_COMP_Util::getNoExtName(QString()).isEmpty());
}
