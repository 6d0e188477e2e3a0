#include "convert/clip_extension.h"

#include <qvlsmilparser.h>

QString clipExtension(const MMS_COMP_SMILMultipartBodypart &part)
{
    const QString extension =
        MMS_COMP_Util::getFirstSupportExtNameByMIMEType(part.getContentType(), part.getSubType());
    return extension.isEmpty() ? MMS_COMP_Util::getExtName(part.getContentLocation()) : extension;
}
