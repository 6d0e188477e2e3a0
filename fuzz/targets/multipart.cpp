/*
 * An untrusted multipart body: parsed, named, searched, encoded and parsed again.
 */
#include "support/pdu.h"

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;

void checkNames(const MMS_COMP_SMILMultipart &body)
{
    for (int i = 0; i < body.getPartCount(); ++i) {
        const Part &part = *body.getBodypartByIndex(i);
        require(!part.getContentLocation().isEmpty(), "a parsed part has a location");
        require(!part.getDispFileName().isEmpty(), "a parsed part has a display name");
        const QString location = body.createUniqueLocation(part.getContentLocation());
        require(!body.isPartExist(location), "a new location is free");
        const QString extension = MMS_COMP_Util::getExtName(part.getContentLocation());
        require(!body.isPartExist(body.createUniqueAttchmentLocation(extension)),
                "a new attachment's location is free");
    }
}

void checkEncoding(MMS_COMP_SMILMultipart *body)
{
    MMS_UTIL_MsgHeaderBase header;
    const QByteArray encoded = MMS_COMP_SMILMultipartParser::assembleBody(body, &header);
    MMS_COMP_SMILMultipart again;
    again.setMimeType(header.getContentType());
    again.setSubType(header.getContentSubType());
    const int result = MMS_COMP_SMILMultipartParser::parse(encoded, &header, &again);
    if (result != MultipartResult::Ok)
        return;
    require(again.getPartCount() <= body->getPartCount(), "encoding adds no part");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray octets(reinterpret_cast<const char *>(data), qsizetype(size));
    MMS_UTIL_MsgHeaderBase header;
    header.setContentTypeParams(QStringLiteral("type=application/smil;start=<s>"));
    MMS_COMP_SMILMultipart body;
    const int result = MMS_COMP_SMILMultipartParser::parse(octets, &header, &body);
    if (result != MultipartResult::Ok)
        return 0;
    if (body.getPartCount() <= 16) // each name is compared with all others
        checkNames(body);
    body.getSmilPart();
    for (int i = 0; i < body.getAttachmentCount(); ++i)
        require(body.getAttachment(i) != nullptr, "a counted attachment exists");
    checkEncoding(&body);
    return 0;
}
