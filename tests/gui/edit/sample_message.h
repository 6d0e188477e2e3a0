/*
 * A message with slides of every kind, built with the library alone, and its facts as texts.
 */
#pragma once

#include "input/message.h"
#include "pictures.h"

#include <QFile>
#include <QStringList>

#include <memory>

namespace SampleMessage {

inline QByteArray clip(const QString &name)
{
    QFile file(QStringLiteral(QVL_FIXTURES "/clips/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline MMS_COMP_COLOR color(const QColor &value)
{
    return {SMIL_COLOR_RGB, QString(), value};
}

inline void beginHeader(MMS_UA_UAMsg *header)
{
    header->setTransactionId(QStringLiteral("t1"));
    header->setMMSVersion(QvlMmsVersion::Version10);
    header->setDate(QDateTime::fromSecsSinceEpoch(1'700'000'000));
    header->addToRecipient({QString(), MMS_UTIL_Entry::Plmn, QStringLiteral("+491701234567")});
    header->setSubject(QStringLiteral("Sample"));
    for (const unsigned char code :
         {HeaderFieldCode::MessageType, HeaderFieldCode::TransactionId, HeaderFieldCode::MmsVersion,
          HeaderFieldCode::Date, HeaderFieldCode::ContentType, HeaderFieldCode::To,
          HeaderFieldCode::Subject})
        header->addFieldsPresent(headerFieldMask(code));
}

inline void put(Message *message, unsigned int slide, MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kind,
                const QString &name, const QString &subtype, const QByteArray &octets)
{
    MMS_COMP_SMILData &slides = message->slides();
    const QString region = kind == SMIL_MEDIA_TEXT ? slides.getTextRegionId()
        : kind == SMIL_MEDIA_AUDIO                 ? QString()
                                                   : slides.getImgRegionId();
    slides.getSlide(slide)->updateData(region, slides.createUniqueSrc(name), kind, subtype, octets,
                                       true, &message->parts());
}

/// Slides: a text below a picture on navy; a text and a sound; a video. One attachment.
inline std::unique_ptr<Message> create()
{
    auto message = std::make_unique<Message>();
    beginHeader(&message->header());
    MMS_COMP_SMILData &slides = message->slides();
    MMS_COMP_SMILParser::updateToCorvaneRootLayout(&slides);
    MMS_COMP_SMILParser::updateToCorvaneRegion(&slides);
    for (int i = 0; i < 3; ++i)
        slides.appendSlide(unsigned(QvlDuration::Default));
    put(message.get(), 0, SMIL_MEDIA_TEXT, "a.txt", "plain", "one");
    put(message.get(), 0, SMIL_MEDIA_IMAGE, "a.png", "png", coloredPicture(Qt::red));
    slides.getSlide(0)->setPageColor(color(QColor(Qt::darkBlue)));
    put(message.get(), 1, SMIL_MEDIA_TEXT, "b.txt", "plain", "two");
    put(message.get(), 1, SMIL_MEDIA_AUDIO, "b.amr", "amr", clip("sound.amr"));
    put(message.get(), 2, SMIL_MEDIA_VIDEO, "c.3gp", "3gpp", clip("video.3gp"));
    auto attachment = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
    attachment->setContentType(QStringLiteral("text"));
    attachment->setContentSubType(QStringLiteral("x-vcard"));
    attachment->setContentLocation(QStringLiteral("d.vcf"));
    attachment->setBodyData(QByteArray("BEGIN:VCARD"));
    message->parts().appendBodypart(attachment.release());
    return message;
}

inline QString colorFact(const MMS_COMP_COLOR &color)
{
    return color.isUsable() ? color.color.name() : QStringLiteral("none");
}

inline QStringList objectFacts(const MMS_COMP_SMILMediaObject &object)
{
    const auto *part = object.getData();
    QStringList facts{QStringLiteral("object %1 src=%2 alt=%3 region=%4 type=%5 mime=%6 part=%7")
                          .arg(object.getMediaElementType())
                          .arg(object.getSrc(), object.getAlt(), object.getRegionId(),
                               object.getMediaType(), object.getMimeType(),
                               part ? part->getContentLocation() : QStringLiteral("none"))};
    for (const MMS_COMP_SMIL_TIME &time : {object.getBegin(), object.getEnd()})
        facts += QStringLiteral("time %1 %2 %3")
                     .arg(time.timeType)
                     .arg(time.eventId)
                     .arg(time.timeValue);
    for (int i = 0; i < object.getParamCount(); ++i)
        facts += QStringLiteral("param %1=%2")
                     .arg(object.getParam(i)->getName(), object.getParam(i)->getValue());
    return facts;
}

inline QStringList headerFacts(const MMS_UA_UAMsg &header)
{
    QStringList facts{QStringLiteral("header %1 %2 %3 %4 %5 %6 %7 %8 %9")
                          .arg(header.getFieldsPresent())
                          .arg(header.getMessageType())
                          .arg(header.getTransactionId(), header.getSubject())
                          .arg(header.getPriority())
                          .arg(header.getExpiry())
                          .arg(header.getDeliveryReport())
                          .arg(header.getReadReply())
                          .arg(header.getDeliveryTime().toString(Qt::ISODate))};
    for (const auto *list :
         {&header.getToRecipients(), &header.getCcRecipients(), &header.getBccRecipients()}) {
        facts += QStringLiteral("recipients");
        for (const MMS_UTIL_Entry *entry : *list)
            facts += QString::number(entry->getType()) + u' ' + entry->getAddress();
    }
    return facts;
}

/// What there is to know about @p message, in order.
inline QStringList facts(const QvlMessage &message)
{
    QStringList facts = headerFacts(message.header());
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        const auto *part = message.parts().getBodypartByIndex(i);
        facts += QStringLiteral("part %1 %2 name=%3 cid=%4 uses=%5 shown=%6 ")
                     .arg(part->getContentLocation(), part->getMimeFormat(),
                          part->getDispFileName(), part->getContentID())
                     .arg(part->getRefCount())
                     .arg(part->getDispFileType())
            + QString::fromLatin1(part->getBodyData().toHex());
    }
    const MMS_COMP_SMILData &slides = message.slides();
    facts += QStringLiteral("layout %1 %2 %3 %4")
                 .arg(slides.getRegionCount())
                 .arg(slides.getRootLayout()->getWidth())
                 .arg(slides.getMetaCount())
                 .arg(message.parts().getSubType());
    for (unsigned int i = 0; i < slides.getTotalSlidesNum(); ++i) {
        const auto *slide = slides.getSlide(i);
        facts += QStringLiteral("slide %1 fixed=%2 page=%3 text=%4 size=%5")
                     .arg(slide->getDur())
                     .arg(slide->getSetDurManually())
                     .arg(colorFact(slide->getPageColor()), colorFact(slide->getTextColor()),
                          slide->getTextSize());
        for (unsigned int k = 0; k < slide->getMediaObjectCount(); ++k)
            facts += objectFacts(*slide->getMediaObject(k));
    }
    return facts;
}

} // namespace SampleMessage
