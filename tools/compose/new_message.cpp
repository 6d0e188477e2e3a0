#include "compose/new_message.h"

#include <QUuid>

void beginHeader(MMS_UA_UAMsg *header)
{
    const QString unique = QUuid::createUuid().toString(QUuid::Id128).first(12);
    header->setTransactionId(QString::number(QDateTime::currentSecsSinceEpoch()) + QLatin1Char('-')
                             + unique);
    header->setMMSVersion(QvlMmsVersion::Version10);
    header->setDate(QDateTime::currentDateTime());
    for (const unsigned char code :
         {HeaderFieldCode::MessageType, HeaderFieldCode::TransactionId, HeaderFieldCode::MmsVersion,
          HeaderFieldCode::Date, HeaderFieldCode::ContentType})
        header->addFieldsPresent(headerFieldMask(code));
}

QString regionOf(const MMS_COMP_SMILData &slides, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind)
{
    if (kind == SMIL_MEDIA_AUDIO)
        return {};
    return kind == SMIL_MEDIA_TEXT ? slides.getTextRegionId() : slides.getImgRegionId();
}
