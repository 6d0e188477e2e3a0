#include "check/picture_size.h"

#include <QBuffer>
#include <QImageReader>

QSize Check::pictureSize(const MMS_COMP_SMILMultipartBodypart &part)
{
    QByteArray octets = part.getBodyData();
    QBuffer buffer(&octets);
    return QImageReader(&buffer).size();
}
