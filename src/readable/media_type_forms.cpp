#include "readable/media_type_forms.h"

#include "multipart/media_types.h"
#include "platform/mime_codes.h"
#include "readable/append_octets.h"
#include "scan/content_type_value.h"
#include "wire/content_type.h"
#include "wire/octets.h"
#include "wire/primitive_values.h"
#include "wire/read.h"

#include <algorithm>
#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned char TypeParameter = 0x89;
constexpr unsigned char StartParameter = 0x8A;

struct MediaType
{
    QString type;
    QString subtype;
};

// Multiparts of e-mail stand for those of WAP: a PDU has no other.
MediaType split(const QString &mediaType)
{
    const qsizetype slash = mediaType.indexOf(u'/');
    MediaType parts{mediaType.first(std::max<qsizetype>(slash, 0)), mediaType.sliced(slash + 1)};
    if (parts.type == "multipart"_L1)
        parts = {MediaTypes::application(), "vnd.wap.multipart."_L1 + parts.subtype};
    return parts;
}

std::optional<QByteArray> code(const MediaType &media)
{
    const unsigned char code = MMS_UTIL_Common::mimeTypeGetValue(media.type, media.subtype);
    if (code == 0 || code > WireOctet::LowSevenBits)
        return std::nullopt;
    return QByteArray(1, char(code | WireOctet::HighBit));
}

// The decoder counts characters, so the text has no quote.
QByteArray parameter(unsigned char code, const QString &text)
{
    return text.isEmpty() ? QByteArray() : char(code) + text.toUtf8() + '\0';
}

QByteArray related(const QvlContentType &contentType)
{
    const QByteArray media = *code({MediaTypes::application(), MediaTypes::related()});
    const QByteArray parameters = parameter(StartParameter, contentType.start())
        + parameter(TypeParameter, contentType.type());
    if (parameters.isEmpty())
        return media;
    QByteArray octets;
    AppendOctets::value<ValueLengthBinary>(&octets, int(media.size() + parameters.size()));
    return octets + media + parameters;
}

} // namespace

QByteArray MediaTypeForms::readable(QByteArrayView value)
{
    const auto contentType = qvlReadContentType(value);
    const MediaType media = split(contentType ? contentType->mediaType : QString());
    if (media.subtype == MediaTypes::related())
        return related(*contentType);
    if (const auto octet = code(media))
        return *octet;
    if (media.subtype.startsWith("vnd.wap.multipart."_L1)) // WSP: unknown ones are mixed
        return *code({MediaTypes::application(), MediaTypes::mixed()});
    if (const auto octet = code({media.type, u"*"_s}))
        return *octet;
    return *code({MediaTypes::application(), u"*"_s});
}

bool MediaTypeForms::haveSameParameters(QByteArrayView a, QByteArrayView b)
{
    MMS_CONTENT_TYPE_T types[2];
    LinearBuffer buffers[]{WireRead::over(a), WireRead::over(b)};
    for (int i = 0; i < 2; ++i)
        std::ignore = ContentTypeField::readFrom(&buffers[i], &types[i]);
    return types[0].parameters == types[1].parameters;
}
