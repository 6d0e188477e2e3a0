/*
 * Well-known media codes: the assignments, in both directions, and unassigned codes.
 */
#include "platform/mime_codes.h"

#include "platform/host/mime_code_table.h"
#include "support/octets.h"

#include <gtest/gtest.h>

using namespace HostPlatform;
using namespace Qt::StringLiterals;

namespace {

QString nameOf(int code)
{
    QString type = u"before"_s;
    QString subtype = u"before"_s;
    MMS_UTIL_Common::mimeTypeGetName(static_cast<unsigned char>(code), type, subtype);
    return type + u'/' + subtype;
}

int valueOf(const QString &name)
{
    return MMS_UTIL_Common::mimeTypeGetValue(name.section(u'/', 0, 0), name.section(u'/', 1));
}

struct Assignment
{
    int code;
    const char *name;
};

// The codes that phones and servers use, and the first and last code.
constexpr Assignment knownAssignments[] = {
    {0x00, "*/*"},
    {0x01, "text/*"},
    {0x02, "text/html"},
    {0x03, "text/plain"},
    {0x06, "text/x-vCalendar"},
    {0x07, "text/x-vCard"},
    {0x08, "text/vnd.wap.wml"},
    {0x0A, "text/vnd.wap.wta-event"},
    {0x0B, "multipart/*"},
    {0x0C, "multipart/mixed"},
    {0x0E, "multipart/byterantes"},
    {0x0F, "multipart/alternative"},
    {0x10, "application/*"},
    {0x12, "application/x-www-form-urlencoded"},
    {0x14, "application/vnd.wap.wmlc"},
    {0x16, "application/vnd.wap.wta-eventc"},
    {0x1B, "application/x-x509-user-cert"},
    {0x1C, "image/*"},
    {0x1D, "image/gif"},
    {0x1E, "image/jpeg"},
    {0x1F, "image/tiff"},
    {0x20, "image/png"},
    {0x21, "image/vnd.wap.wbmp"},
    {0x22, "application/vnd.wap.multipart.*"},
    {0x23, "application/vnd.wap.multipart.mixed"},
    {0x24, "application/vnd.wap.multipart.form-data"},
    {0x25, "application/vnd.wap.multipart.byteranges"},
    {0x26, "application/vnd.wap.multipart.alternative"},
    {0x27, "application/xml"},
    {0x28, "text/xml"},
    {0x29, "application/vnd.wap.wbxml"},
    {0x2D, "text/vnd.wap.si"},
    {0x30, "application/vnd.wap.slc"},
    {0x33, "application/vnd.wap.multipart.related"},
    {0x37, "application/pkcs7-mime"},
    {0x3B, "application/xhtml+xml"},
    {0x3D, "text/css"},
    {0x3E, "application/vnd.wap.mms-message"},
    {0x3F, "application/vnd.wap.rollover-certificate"},
    {0x44, "application/vnd.syncml.notification"},
    {0x45, "application/vnd.wap.xhtml+xml"},
    {0x48, "application/vnd.oma.drm.message"},
    {0x49, "application/vnd.oma.drm.content"},
    {0x4A, "application/vnd.oma.drm.rights+xml"},
    {0x4B, "application/vnd.oma.drm.rights+wbxml"},
    {0x4F, "audio/*"},
    {0x50, "video/*"},
    {0x55, "text/x-vMessage"},
    {0x57, "text/x-vBookmark"},
    {0x59, "application/octet-stream"},
    {0x5A, "application/json"},
};

} // namespace

TEST(MMS_UTIL_Common, KnowsTheAssignedCodesBothWays)
{
    for (const auto &[code, name] : knownAssignments) {
        EXPECT_EQ(nameOf(code), QLatin1String(name)) << "code " << code;
        EXPECT_EQ(valueOf(QLatin1String(name)), code) << name;
    }
}

TEST(MMS_UTIL_Common, FindsEveryRowInAnyCase)
{
    for (const MimeCodeRow &row : mimeCodeTable) {
        const QString name = nameOf(row.code);
        EXPECT_EQ(valueOf(name), row.code) << name.toStdString();
        EXPECT_EQ(valueOf(name.toUpper()), row.code) << name.toStdString();
        EXPECT_EQ(valueOf(name.toLower()), row.code) << name.toStdString();
    }
}

TEST(MMS_UTIL_Common, ReturnsEmptyTextsForUnassignedCodes)
{
    for (int code = 0x5B; code <= 0xFF; ++code) {
        QString type = u"before"_s;
        QString subtype = u"before"_s;
        MMS_UTIL_Common::mimeTypeGetName(static_cast<unsigned char>(code), type, subtype);
        EXPECT_TRUE(type.isEmpty() && !type.isNull()) << code;
        EXPECT_TRUE(subtype.isEmpty() && !subtype.isNull()) << code;
    }
}

TEST(MMS_UTIL_Common, DoesNotKnowOtherMediaTypes)
{
    const QString tooLong(10000, u'x');
    const struct
    {
        QString type;
        QString subtype;
    } rows[] = {
        {QString(), QString()},
        {u""_s, u""_s},
        {u"text"_s, QString()},
        {QString(), u"plain"_s},
        {u"*"_s, u"plain"_s},
        {u"plain"_s, u"text"_s},
        {u"text"_s, u"plain "_s},
        {u"text"_s, u"plai"_s},
        {u"text"_s, u"plain;charset=utf-8"_s},
        {u"text/plain"_s, QString()},
        {u"multipart"_s, u"byteranges"_s},
        {u"audio"_s, u"amr"_s},
        {u"application"_s, u"smil"_s},
        {u"text"_s, u"html\u0000"_s},
        {tooLong, u"plain"_s},
        {u"text"_s, tooLong},
        {tooLong, tooLong},
    };
    for (const auto &[type, subtype] : rows) {
        EXPECT_EQ(MMS_UTIL_Common::mimeTypeGetValue(type, subtype), 0xFF)
            << type.left(40).toStdString() << "/" << subtype.left(40).toStdString();
    }
}

// Otherwise the receiver would get an ASCII name instead of the sender's letters.
TEST(MMS_UTIL_Common, DoesNotMatchOtherLettersWithAscii)
{
    EXPECT_EQ(MMS_UTIL_Common::mimeTypeGetValue(u"text"_s, u"c\u017fs"_s), 0xFF) << "long s";
    EXPECT_EQ(MMS_UTIL_Common::mimeTypeGetValue(u"application"_s, u"mi\u212aey"_s), 0xFF)
        << "Kelvin sign";
}

TEST(MMS_UTIL_Common, AcceptsOneObjectForBothTexts)
{
    const QString star = u"*"_s;
    EXPECT_EQ(MMS_UTIL_Common::mimeTypeGetValue(star, star), 0x00);
}
