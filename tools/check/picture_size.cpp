#include "check/picture_size.h"

#include "render/picture_source.h"

QSize Check::pictureSize(const MMS_COMP_SMILMultipartBodypart &part)
{
    return examinePicture(part.getBodyData()).storedSize;
}
