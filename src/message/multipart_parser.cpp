#include "message/multipart_parser.h"

#include "base/no_memory.h"
#include "multipart/lower_case.h"
#include "multipart/media_types.h"
#include "multipart/multipart.h"
#include "multipart/multipart_result.h"
#include "multipart/part_names.h"
#include "platform/comp_util.h"
#include "platform/msg_header_base.h"
#include "wire/content_type.h"
#include "wire/linear_buffer.h"
#include "wire/multipart_codec.h"
#include "wire/multipart_writer.h"
#include "wire/wire_result.h"

#include <optional>

using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

QString locationFor(const Part &part, PartNames &names)
{
    const QString displayName = part.getDispFileName();
    if (!displayName.isEmpty())
        return names.uniqueLocation(displayName);
    return names.uniqueAttachmentLocation(
        MMS_COMP_Util::getFirstSupportExtNameByMIMEType(part.getContentType(), part.getSubType()));
}

// A message with the content type related or mixed keeps it, whatever its parts are.
void settleContentType(MMS_COMP_SMILMultipart *multipart)
{
    const bool hasSmil = multipart->getSmilPart() != nullptr;
    const bool isApplication =
        isSameInLowerCase(multipart->getMimeType(), MediaTypes::application());
    const bool saysRelated = isSameInLowerCase(multipart->getSubType(), MediaTypes::related());
    const bool saysMixed = isSameInLowerCase(multipart->getSubType(), MediaTypes::mixed());
    bool isRelated = hasSmil;
    if (isApplication && (saysRelated || saysMixed))
        isRelated = saysRelated;
    else
        multipart->setSubType(isRelated ? MediaTypes::related() : MediaTypes::mixed());
    if (!isApplication)
        multipart->setMimeType(MediaTypes::application());
    multipart->setExtType(isRelated ? MediaTypes::smil() : QStringLiteral(""));
}

// Call after settleContentType(): only a related message has an ext type.
QString contentTypeParameters(const MMS_COMP_SMILMultipart &multipart)
{
    QStringList parameters;
    if (!multipart.getStart().isEmpty())
        parameters += QLatin1String("start=") + multipart.getStart();
    if (!multipart.getExtType().isEmpty())
        parameters += QLatin1String("type=") + multipart.getExtType();
    return parameters.join(QLatin1Char(';'));
}

QByteArray encode(const MMS_COMP_SMILMultipart &multipart)
{
    const int capacity = MultipartWriter::capacityFor(multipart);
    QByteArray body(capacity, Qt::Uninitialized);
    LinearBuffer buffer(reinterpret_cast<unsigned char *>(body.data()), capacity);
    const bool written =
        MultipartWriter::write(&buffer, multipart) == WireResult::Written && buffer.hasMore();
    body.truncate(written ? buffer.getPosition() : 0);
    return body;
}

} // namespace

int MMS_COMP_SMILMultipartParser::parse(const QArray<char> &body, MMS_UTIL_MsgHeaderBase *header,
                                        MMS_COMP_SMILMultipart *multipart)
{
    return unlessOutOfMemory(MultipartResult::OutOfMemory, [&]() -> int {
        if (!header || !multipart)
            return MultipartResult::NullArgument;
        if (!multipart->getBoundary().isEmpty())
            return MultipartResult::Ok;
        const auto *octets = reinterpret_cast<const unsigned char *>(body.constData());
        const bool related = header->getContentSubType() == MediaTypes::related();
        const auto result = MMS_UA_MultiPart_CODEC::decodeMultipart(
            related, octets, unsigned(body.size()), multipart);
        if (result != WireResult::Read)
            return handleErr(result);
        checkLocation(multipart);
        const QString params = header->getContentTypeParams();
        multipart->setStart(parseStart(params));
        multipart->setExtType(parseExtType(params));
        return MultipartResult::Ok;
    });
}

QArray<char> MMS_COMP_SMILMultipartParser::assembleBody(MMS_COMP_SMILMultipart *multipart,
                                                        MMS_UTIL_MsgHeaderBase *header)
{
    return unlessOutOfMemory(QByteArray(), [&]() -> QArray<char> {
        if (!multipart || !header || !multipart->getBoundary().isEmpty())
            return QByteArray();
        settleContentType(multipart);
        header->setContentType(multipart->getMimeType());
        header->setContentSubType(multipart->getSubType());
        header->setContentTypeParams(contentTypeParameters(*multipart));
        return encode(*multipart);
    });
}

void MMS_COMP_SMILMultipartParser::checkLocation(MMS_COMP_SMILMultipart *multipart)
{
    asFarAsMemoryGoes([&] {
        if (!multipart)
            return;
        std::optional<PartNames> names; // most messages have a name for every part
        for (int i = 0; i < multipart->getPartCount(); ++i) {
            Part *part = multipart->getBodypartByIndex(i);
            if (part->getContentLocation().isEmpty()) {
                if (!names)
                    names.emplace(*multipart);
                part->setContentLocation(locationFor(*part, *names));
            }
            if (part->getDispFileName().isEmpty())
                part->setDispFileName(part->getContentLocation());
        }
    });
}

QString MMS_COMP_SMILMultipartParser::parseStart(const QString &params)
{
    return ContentTypeField::startOf(params);
}

QString MMS_COMP_SMILMultipartParser::parseExtType(const QString &params)
{
    return ContentTypeField::mprtOf(params);
}

int MMS_COMP_SMILMultipartParser::handleErr(unsigned char code)
{
    if (code == WireResult::Read || code == WireResult::Written)
        return MultipartResult::Ok;
    if (code < WireResult::Written)
        return MultipartResult::CannotDecode;
    if (code <= WireResult::CannotWrite)
        return MultipartResult::CannotEncode;
    return MultipartResult::UnknownCodecResult;
}
