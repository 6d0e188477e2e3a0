/*
 * Parts of file names, and file extensions of media types: known ones in both directions, and
 * unknown ones.
 */
#include "platform/comp_util.h"

#include "platform/host/mime_extension_table.h"
#include "support/octets.h"

#include <gtest/gtest.h>

using namespace HostPlatform;
using namespace Qt::StringLiterals;

namespace {

QString extensionOf(const QString &mimeType)
{
    return MMS_COMP_Util::getFirstSupportExtNameByMIMEType(mimeType.section(u'/', 0, 0),
                                                           mimeType.section(u'/', 1));
}

QString mimeTypeOf(const QString &extension)
{
    QString type;
    QString subtype;
    return MMS_COMP_Util::getMIMETypeByExtName(extension, type, subtype) ? type + u'/' + subtype
                                                                         : u"unknown"_s;
}

QString nameOf(const MediaType &mediaType)
{
    return latin1(mediaType.type) + u'/' + latin1(mediaType.subtype);
}

bool lists(const MimeExtensionRow &row, std::string_view extension)
{
    return std::ranges::count(row.extensions.all, extension) > 0;
}

struct Expectation
{
    const char *from;
    const char *to;
};

} // namespace

TEST(MMS_COMP_Util, PrefersOneExtensionForAMediaType)
{
    constexpr Expectation rows[] = {
        {"image/jpeg", "jpg"},
        {"image/jpg", "jpg"},
        {"image/gif", "gif"},
        {"image/png", "png"},
        {"image/vnd.wap.wbmp", "wbmp"},
        {"image/bmp", "bmp"},
        {"image/tiff", "tiff"},
        {"audio/amr", "amr"},
        {"audio/amr-nb", "amr"},
        {"audio/amr-wb", "awb"},
        {"audio/midi", "mid"},
        {"audio/mid", "mid"},
        {"audio/x-midi", "mid"},
        {"audio/sp-midi", "mid"},
        {"audio/x-sp-midi", "mid"},
        {"audio/imelody", "imy"},
        {"text/x-iMelody", "imy"},
        {"audio/x-imelody", "imy"},
        {"audio/mpeg", "mp3"},
        {"audio/mp3", "mp3"},
        {"audio/mpeg3", "mp3"},
        {"audio/mp4", "m4a"},
        {"audio/x-m4a", "m4a"},
        {"audio/aac", "aac"},
        {"audio/wav", "wav"},
        {"audio/x-wav", "wav"},
        {"audio/ogg", "ogg"},
        {"audio/3gpp", "3gp"},
        {"video/3gpp", "3gp"},
        {"audio/3gpp2", "3g2"},
        {"video/3gpp2", "3g2"},
        {"video/mp4", "mp4"},
        {"video/mpeg", "mpg"},
        {"video/x-msvideo", "avi"},
        {"text/x-vCard", "vcf"},
        {"text/vcard", "vcf"},
        {"text/x-vCalendar", "vcs"},
        {"text/calendar", "ics"},
        {"text/plain", "txt"},
        {"text/html", "html"},
        {"application/xhtml+xml", "xhtml"},
        {"application/vnd.wap.xhtml+xml", "xhtml"},
        {"text/vnd.wap.wml", "wml"},
        {"text/css", "css"},
        {"text/xml", "xml"},
        {"application/xml", "xml"},
        {"application/java-archive", "jar"},
        {"text/vnd.sun.j2me.app-descriptor", "jad"},
        {"application/vnd.oma.drm.message", "dm"},
        {"application/vnd.oma.drm.content", "dcf"},
        {"application/vnd.oma.drm.rights+xml", "dr"},
        {"application/vnd.oma.drm.rights+wbxml", "drc"},
        {"application/zip", "zip"},
        {"application/pdf", "pdf"},
    };
    for (const auto &[mimeType, extension] : rows)
        EXPECT_EQ(extensionOf(QLatin1String(mimeType)), QLatin1String(extension)) << mimeType;
}

TEST(MMS_COMP_Util, PrefersOneMediaTypeForAnExtension)
{
    constexpr Expectation rows[] = {
        {"jpg", "image/jpeg"},
        {"jpeg", "image/jpeg"},
        {"tif", "image/tiff"},
        {"wbmp", "image/vnd.wap.wbmp"},
        {"amr", "audio/amr"},
        {"awb", "audio/amr-wb"},
        {"mid", "audio/midi"},
        {"midi", "audio/midi"},
        {"imy", "audio/imelody"},
        {"mp3", "audio/mpeg"},
        {"m4a", "audio/mp4"},
        {"wav", "audio/wav"},
        {"ogg", "audio/ogg"},
        {"3gp", "video/3gpp"},
        {"3g2", "video/3gpp2"},
        {"mp4", "video/mp4"},
        {"mpeg", "video/mpeg"},
        {"avi", "video/x-msvideo"},
        {"vcf", "text/x-vcard"},
        {"vcs", "text/x-vcalendar"},
        {"ics", "text/calendar"},
        {"txt", "text/plain"},
        {"htm", "text/html"},
        {"xhtml", "application/xhtml+xml"},
        {"xml", "text/xml"},
        {"smil", "application/smil"},
        {"smi", "application/smil"},
        {"dcf", "application/vnd.oma.drm.content"},
        {"drc", "application/vnd.oma.drm.rights+wbxml"},
    };
    for (const auto &[extension, mimeType] : rows)
        EXPECT_EQ(mimeTypeOf(QLatin1String(extension)), QLatin1String(mimeType)) << extension;
}

TEST(MMS_COMP_Util, KnowsEveryRowForwardInAnyCase)
{
    for (const MimeExtensionRow &row : mimeExtensionTable) {
        const QString name = nameOf(row.mediaType);
        const QString preferred =
            row.naming == Naming::Nameless ? QString() : latin1(row.extensions.preferred());
        EXPECT_EQ(extensionOf(name), preferred) << name.toStdString();
        EXPECT_EQ(extensionOf(name.toUpper()), preferred) << name.toStdString();
    }
}

TEST(MMS_COMP_Util, MapsEveryExtensionToTheFirstRowThatListsIt)
{
    for (const MimeExtensionRow &row : mimeExtensionTable) {
        for (const std::string_view extension : row.extensions.all) {
            if (extension.empty())
                continue;
            const auto first =
                std::ranges::find_if(mimeExtensionTable, [&](const MimeExtensionRow &candidate) {
                    return lists(candidate, extension);
                });
            const QString text = latin1(extension);
            EXPECT_EQ(mimeTypeOf(text), nameOf(first->mediaType)) << text.toStdString();
            EXPECT_EQ(mimeTypeOf(text.toUpper()), nameOf(first->mediaType)) << text.toStdString();
        }
    }
}

TEST(MMS_COMP_Util, HasAnExtensionForAllExceptPresentations)
{
    EXPECT_EQ(extensionOf(u"application/smil"_s), QString());
    EXPECT_EQ(extensionOf(u"Application/SMIL"_s), QString());
    const auto isNameless = [](const MimeExtensionRow &row) {
        return row.naming == Naming::Nameless;
    };
    EXPECT_EQ(std::ranges::count_if(mimeExtensionTable, isNameless), 1);
}

TEST(MMS_COMP_Util, HasNoExtensionForOtherMediaTypes)
{
    const QString tooLong(10000, u'x');
    const QString rows[] = {
        QString(),
        u"/"_s,
        u"image"_s,
        u"image/"_s,
        u"/jpeg"_s,
        u"jpeg/image"_s,
        u"image/jpeg "_s,
        u"image/jpe"_s,
        u"image/jpeg/jpeg"_s,
        u"image/*"_s,
        u"application/octet-stream"_s,
        u"application/vnd.wap.multipart.related"_s,
        u"text/c\u017fs"_s,
        u"image/"_s + tooLong,
        tooLong + u"/jpeg"_s,
    };
    for (const QString &mimeType : rows) {
        const QString extension = extensionOf(mimeType);
        EXPECT_TRUE(extension.isEmpty() && !extension.isNull()) << mimeType.left(40).toStdString();
    }
}

TEST(MMS_COMP_Util, DoesNotChangeTheTextsForUnknownExtensions)
{
    const QString rows[] = {QString(), u""_s,     u"."_s,        u".jpg"_s,           u"jpg "_s,
                            u"jp"_s,   u"jpgx"_s, u"c\u017fs"_s, QString(10000, u'j')};
    for (const QString &extension : rows) {
        QString type = u"type"_s;
        QString subtype = u"subtype"_s;
        EXPECT_FALSE(MMS_COMP_Util::getMIMETypeByExtName(extension, type, subtype))
            << extension.left(40).toStdString();
        EXPECT_EQ(type, u"type"_s);
        EXPECT_EQ(subtype, u"subtype"_s);
    }
}

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

TEST(MMS_COMP_Util, KeepsNamesWithoutExtension)
{
    const QString rows[] = {
        u""_s,       u"a"_s,        u"a."_s, u"a.b."_s,           u"."_s, u".."_s, u"dir.d/a"_s,
        u"dir.d/"_s, u"dir.d/a."_s, u"/"_s,  QString(10000, u'.')};
    for (const QString &name : rows) {
        EXPECT_EQ(MMS_COMP_Util::getExtName(name), u""_s) << name.left(40).toStdString();
        EXPECT_EQ(MMS_COMP_Util::getNoExtName(name), name) << name.left(40).toStdString();
    }
}

TEST(MMS_COMP_Util, AcceptsNullTexts)
{
    EXPECT_TRUE(MMS_COMP_Util::stripePath(QString()).isEmpty());
    EXPECT_TRUE(MMS_COMP_Util::getExtName(QString()).isEmpty());
    EXPECT_TRUE(MMS_COMP_Util::getNoExtName(QString()).isEmpty());
}
