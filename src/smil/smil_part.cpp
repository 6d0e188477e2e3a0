#include "smil/smil_part.h"

#include "multipart/media_types.h"
#include "multipart/multipart.h"
#include "platform/email_util.h"

#include <memory>
#include <tuple>

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
    std::ignore = part->setContentType(EMAIL_Util::Application); // every platform has both codes
    std::ignore = part->setSubTypeCode(EMAIL_Util::Smil);
    part->setContentLocation(location);
    part->setContentID(contentId);
    part->setBodyData(smil);
    std::ignore = multipart->insertBodypart(part.release(), 0); // fails only with an exception
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
