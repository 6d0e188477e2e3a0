#include "multipart/body_part.h"

#include "multipart/multipart_result.h"
#include "platform/email_util.h"

#include <QDataStream>

#include <new>

using namespace Qt::StringLiterals;

namespace {

// Empty, not null: streams distinguish the two.
QString emptyText()
{
    return u""_s;
}

// Likewise for octets. Allocates nothing.
QByteArray emptyBody()
{
    return QByteArray("");
}

QByteArray emptyUnlessGiven(const QByteArray &octets)
{
    return octets.isNull() ? emptyBody() : octets;
}

using EnumToText = bool (*)(int, QCString &);

bool assignText(QString &field, int code, EnumToText lookUp)
{
    QCString text;
    if (!lookUp(code, text))
        return false;
    field = QString::fromLatin1(text);
    return true;
}

} // namespace

MMS_COMP_SMILMultipartBodypart::MMS_COMP_SMILMultipartBodypart()
    : m_dispFileName(emptyText()), m_contentType(emptyText()), m_subType(emptyText()),
      m_charset(emptyText()), m_description(emptyText()), m_contentLocation(emptyText()),
      m_contentID(emptyText()), m_contentXferEncoding(emptyText()), m_bodyData(emptyBody())
{
}

MMS_COMP_SMILMultipartBodypart::MMS_COMP_SMILMultipartBodypart(
    const MMS_COMP_SMILMultipartBodypart &) = default;
MMS_COMP_SMILMultipartBodypart &MMS_COMP_SMILMultipartBodypart::operator=(
    const MMS_COMP_SMILMultipartBodypart &) = default;
MMS_COMP_SMILMultipartBodypart::~MMS_COMP_SMILMultipartBodypart() = default;

int MMS_COMP_SMILMultipartBodypart::setDispFileName(const QString &name)
{
    m_dispFileName = name;
    return MultipartResult::Ok;
}

void MMS_COMP_SMILMultipartBodypart::setContentType(const QString &type)
{
    m_contentType = type;
    m_mediaCheck = MediaCheck::NotChecked;
}

int MMS_COMP_SMILMultipartBodypart::setContentType(int code)
{
    if (!assignText(m_contentType, code, EMAIL_Util::typeEnumToStr))
        return 0;
    m_mediaCheck = MediaCheck::NotChecked;
    return 1;
}

int MMS_COMP_SMILMultipartBodypart::getContentTypeByCode() const
{
    return EMAIL_Util::typeStrToEnum(m_contentType.toLocal8Bit());
}

int MMS_COMP_SMILMultipartBodypart::setContentSubType(const QString &subType)
{
    m_subType = subType;
    m_mediaCheck = MediaCheck::NotChecked;
    return 1;
}

int MMS_COMP_SMILMultipartBodypart::setSubTypeCode(int code)
{
    if (!assignText(m_subType, code, EMAIL_Util::subTypeEnumToStr))
        return 0;
    m_mediaCheck = MediaCheck::NotChecked;
    return 1;
}

int MMS_COMP_SMILMultipartBodypart::getSubTypeCode() const
{
    return EMAIL_Util::subTypeStrToEnum(m_subType.toLocal8Bit());
}

int MMS_COMP_SMILMultipartBodypart::setCharsetByCode(int code)
{
    return assignText(m_charset, code, EMAIL_Util::charsetEnumToStr) ? 1 : 0;
}

int MMS_COMP_SMILMultipartBodypart::getCharsetByCode() const
{
    return EMAIL_Util::subTypeStrToEnum(m_charset.toLocal8Bit());
}

int MMS_COMP_SMILMultipartBodypart::setContentLocation(const QString &location)
{
    m_contentLocation = location;
    return MultipartResult::Ok;
}

int MMS_COMP_SMILMultipartBodypart::setContentID(const QString &id)
{
    m_contentID = id;
    return MultipartResult::Ok;
}

int MMS_COMP_SMILMultipartBodypart::setContentXferEncoding(const QString &encoding)
{
    m_contentXferEncoding = encoding;
    return MultipartResult::Ok;
}

void MMS_COMP_SMILMultipartBodypart::setContentXferEncodingByCode(int code)
{
    m_contentXferEncoding = QString::fromLatin1(EMAIL_Util::cteEnumToStr(code));
}

int MMS_COMP_SMILMultipartBodypart::getContentXferEncodingByCode() const
{
    return EMAIL_Util::cteStrToEnum(m_contentXferEncoding.toLocal8Bit());
}

void MMS_COMP_SMILMultipartBodypart::setBodyData(const QArray<char> &data)
{
    m_bodyData = emptyUnlessGiven(data);
    m_mediaCheck = MediaCheck::NotChecked;
}

int MMS_COMP_SMILMultipartBodypart::setBodyData(const char *data, int len)
{
    m_mediaCheck = MediaCheck::NotChecked;
    if (len >= 1 && !data)
        return MultipartResult::OutOfMemory;
    // Catches here, because unlessOutOfMemory() lets the exception pass within another operation,
    // while decoders need the result: for them a part without memory is WireResult::OutOfData.
    try {
        m_bodyData = len < 1 ? emptyBody() : QByteArray(data, len);
    } catch (const std::bad_alloc &) {
        return MultipartResult::OutOfMemory;
    }
    return MultipartResult::Ok;
}

QString MMS_COMP_SMILMultipartBodypart::getMimeFormat() const
{
    return m_contentType + u'/' + m_subType;
}

QString MMS_COMP_SMILMultipartBodypart::getTypePartFromFormat(const QString &format)
{
    const qsizetype slash = format.indexOf(u'/');
    return slash < 0 ? emptyText() : format.left(slash);
}

QString MMS_COMP_SMILMultipartBodypart::getSubTypePartFromFormat(const QString &format)
{
    const qsizetype slash = format.lastIndexOf(u'/');
    return slash < 0 ? emptyText() : format.sliced(slash + 1);
}

int MMS_COMP_SMILMultipartBodypart::writeToStream(QDataStream &stream) const
{
    stream << m_contentType << m_subType << m_charset << m_dispFileName << m_description
           << m_contentLocation << m_contentID << m_contentXferEncoding << qint32(m_dispFileType)
           << m_bodyData;
    return 1;
}

int MMS_COMP_SMILMultipartBodypart::readFromStream(QDataStream &stream)
{
    qint32 dispFileType = 0;
    stream >> m_contentType >> m_subType >> m_charset >> m_dispFileName >> m_description
        >> m_contentLocation >> m_contentID >> m_contentXferEncoding >> dispFileType >> m_bodyData;
    m_dispFileType = dispFileType;
    m_bodyData = emptyUnlessGiven(m_bodyData);
    return 1;
}
