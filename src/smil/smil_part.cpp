#include "smil/smil_part.h"

#include "multipart/media_types.h"
#include "multipart/multipart.h"
#include "platform/email_util.h"

#include <memory>

using namespace Qt::StringLiterals;

using Part = MMS_COMP_SMILMultipartBodypart;

namespace {

void insert(MMS_COMP_SMILMultipart *multipart, const QByteArray &smil, const QString &wanted)
{
    auto part = std::make_unique<Part>();
    const QString location = multipart->createUniqueLocation(wanted);
    const QString contentId = u'<' + location + u'>';
    part->setDispFileType(Part::Shown);
    part->setDispFileName(u"smil.txt"_s);
    part->setContentType(EMAIL_Util::Application);
    part->setSubTypeCode(EMAIL_Util::Smil);
    part->setContentLocation(location);
    part->setContentID(contentId);
    part->setBodyData(smil);
    multipart->insertBodypart(part.release(), 0);
    multipart->setStart(contentId);
    multipart->setExtType(MediaTypes::smil());
    multipart->setMimeType(MediaTypes::application());
    multipart->setSubType(MediaTypes::related());
}

} // namespace

void SmilPart::store(MMS_COMP_SMILMultipart *multipart, const QByteArray &smil,
                     const QString &location)
{
    if (Part *part = multipart->getSmilPart())
        part->setBodyData(smil);
    else
        insert(multipart, smil, location);
}
