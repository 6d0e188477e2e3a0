#include "wire/content_type.h"

#include "platform/mime_codes.h"
#include "wire/append.h"
#include "wire/header_field_codes.h"
#include "wire/header_record.h"
#include "wire/linear_buffer.h"
#include "wire/octets.h"
#include "wire/primitive_values.h"
#include "wire/wire_result.h"
#include "wire/wire_text.h"

using namespace WireOctet;

namespace {

constexpr unsigned char MultipartRelated = 0x33;
// Some gateways pass the media octet through UTF-8: 0xB3 arrives as 0xC2 0xB3.
constexpr unsigned char Utf8Lead = 0xC2;
constexpr unsigned char TypeParameter = 0x09;
constexpr unsigned char StartParameter = 0x0A;
constexpr QLatin1String TypeKey("type=");
constexpr QLatin1String StartKey("start=");

QString parameterOf(const QString &parameters, QLatin1String key)
{
    const qsizetype found = parameters.indexOf(key);
    if (found < 0)
        return QLatin1String("");
    const qsizetype begin = found + key.size();
    const qsizetype end = parameters.indexOf(QLatin1Char(';'), found);
    return end < 0 ? parameters.sliced(begin) : parameters.sliced(begin, end - begin);
}

void setMediaType(MMS_CONTENT_TYPE_T *contentType, unsigned char code)
{
    MMS_UTIL_Common::mimeTypeGetName(code, contentType->type, contentType->subtype);
    contentType->parameters.clear();
}

// Reads the media octet, skipping a stray UTF-8 lead octet before it.
[[nodiscard]] bool readMediaOctet(LinearBuffer *buffer, unsigned char *octet)
{
    return buffer->readByte(octet) && (*octet != Utf8Lead || buffer->readByte(octet));
}

// Skips the octet at the cursor if it is @p unwanted; false when the data ran out.
[[nodiscard]] bool skipOctet(LinearBuffer *buffer, unsigned char unwanted, int *skipped)
{
    unsigned char octet = 0;
    if (!buffer->readByte(&octet))
        return false;
    *skipped = octet == unwanted ? 1 : 0;
    if (*skipped == 0)
        buffer->rewind(1);
    return true;
}

// Reads Type and Start from the @p remaining octets of a related content type. A text counts in
// characters without its quote, so after a quoted one the reader looks for one octet more. Kept.
[[nodiscard]] unsigned char readParameters(LinearBuffer *buffer, int remaining, QString *parameters)
{
    QByteArrayView type;
    QByteArrayView start;
    while (remaining > 0) {
        unsigned char parameter = 0;
        if (!buffer->readByte(&parameter))
            return WireResult::OutOfData;
        --remaining;
        parameter &= LowSevenBits;
        if (parameter != TypeParameter && parameter != StartParameter)
            continue;
        int quote = 0;
        if (parameter == StartParameter && !skipOctet(buffer, '"', &quote))
            return WireResult::OutOfData;
        const auto text = WireText::read(buffer);
        if (!text)
            return WireResult::OutOfData;
        (parameter == TypeParameter ? type : start) = *text;
        remaining -= quote + int(text->size()) + 1;
    }
    *parameters =
        TypeKey + QLatin1StringView(type) + QLatin1Char(';') + StartKey + QLatin1StringView(start);
    return WireResult::Read;
}

struct RelatedParameters
{
    explicit RelatedParameters(const QString &parameters)
        : start(ContentTypeField::startOf(parameters)), type(ContentTypeField::mprtOf(parameters))
    {
    }

    // Media octet, two parameter octets, two texts with their terminators. Quotes are not counted.
    // Kept: receivers have always got this length from the handset.
    int valueLength() const
    {
        return int(WireText::utf8(start).size()) + int(WireText::utf8(type).size()) + 5;
    }

    QString start;
    QString type;
};

MMS_CONTENT_TYPE_T contentTypeOf(const MMS_UA_UAMsg *msg)
{
    return {msg->getContentType(), msg->getContentSubType(), msg->getContentTypeParams()};
}

} // namespace

QString ContentTypeField::mprtOf(const QString &parameters)
{
    return parameterOf(parameters, TypeKey);
}

QString ContentTypeField::startOf(const QString &parameters)
{
    return parameterOf(parameters, StartKey);
}

// content-type ::= octet > 80 | value-length [C2] B3 [C2] parameter *
// parameter ::= 89 text | 8A ["] text | octet
unsigned char ContentTypeField::readFrom(LinearBuffer *buffer, MMS_CONTENT_TYPE_T *contentType)
{
    unsigned char octet = 0;
    if (!buffer->readByte(&octet))
        return WireResult::OutOfData;
    if (octet > HighBit) {
        setMediaType(contentType, octet & LowSevenBits);
        return WireResult::Read;
    }
    buffer->rewind(1);
    int length = 0;
    if (ValueLengthBinary::readFrom(buffer, &length) != WireResult::Read || length < 0
        || !readMediaOctet(buffer, &octet))
        return WireResult::OutOfData;
    if ((octet & LowSevenBits) != MultipartRelated)
        return WireResult::UnsupportedContentType;
    setMediaType(contentType, MultipartRelated);

    int stray = 0;
    if (!skipOctet(buffer, Utf8Lead, &stray))
        return WireResult::OutOfData;
    return readParameters(buffer, length - 1, &contentType->parameters);
}

unsigned char ContentTypeField::writeTo(LinearBuffer *buffer, const MMS_CONTENT_TYPE_T &contentType)
{
    const unsigned char result = IntegerBinary::writeTo(buffer, HeaderFieldCode::ContentType);
    const unsigned char code =
        MMS_UTIL_Common::mimeTypeGetValue(contentType.type, contentType.subtype);
    if (code != MultipartRelated) {
        WireAppend::octet(buffer, static_cast<unsigned char>(code + HighBit));
        return result;
    }
    const RelatedParameters parameters(contentType.parameters);
    WireAppend::value<ValueLengthBinary>(buffer, parameters.valueLength());
    WireAppend::octet(buffer, MultipartRelated | HighBit);
    WireAppend::octet(buffer, StartParameter | HighBit);
    WireAppend::value<PlainTextBinary>(buffer, parameters.start);
    WireAppend::octet(buffer, TypeParameter | HighBit);
    WireAppend::value<PlainTextBinary>(buffer, parameters.type);
    return result;
}

int ContentTypeField::sizeOf(const MMS_CONTENT_TYPE_T &contentType)
{
    if (MMS_UTIL_Common::mimeTypeGetValue(contentType.type, contentType.subtype)
        != MultipartRelated)
        return 1;
    const RelatedParameters parameters(contentType.parameters);
    return ValueLengthBinary::sizeOf(parameters.valueLength()) + 3
        + PlainTextBinary::sizeOf(parameters.start) + PlainTextBinary::sizeOf(parameters.type);
}

unsigned char ContentTypeField::readField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    MMS_CONTENT_TYPE_T contentType;
    const unsigned char result = readFrom(buffer, &contentType);
    if (!contentType.type.isEmpty()) {
        msg->addFieldsPresent(headerFieldMask(HeaderFieldCode::ContentType));
        msg->setContentType(contentType.type);
        msg->setContentSubType(contentType.subtype);
        msg->setContentTypeParams(contentType.parameters);
    }
    return result;
}

unsigned char ContentTypeField::writeField(LinearBuffer *buffer, MMS_UA_UAMsg *msg)
{
    return writeTo(buffer, contentTypeOf(msg));
}

int ContentTypeField::fieldSize(MMS_UA_UAMsg *msg)
{
    return sizeOf(contentTypeOf(msg)) + 1;
}
