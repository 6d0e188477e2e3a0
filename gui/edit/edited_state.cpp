#include "edit/edited_state.h"

#include <QHash>

#include <algorithm>

namespace {

using Entries = QPtrList<MMS_UTIL_Entry>;
using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;
using PartIndexes = QHash<const Part *, int>;

EditedAddress addressOf(const MMS_UTIL_Entry &entry)
{
    return {entry.getName(), entry.getType(), entry.getAddress()};
}

MMS_UTIL_Entry entryOf(const EditedAddress &address)
{
    return {address.name, address.type, address.address};
}

std::vector<EditedAddress> addressesOf(const Entries &entries)
{
    std::vector<EditedAddress> addresses;
    for (const MMS_UTIL_Entry *entry : entries) {
        if (entry)
            addresses.push_back(addressOf(*entry));
    }
    return addresses;
}

EditedHeader headerOf(const MMS_UA_UAMsg &header)
{
    return {.from = addressOf(header.getFrom()),
            .to = addressesOf(header.getToRecipients()),
            .cc = addressesOf(header.getCcRecipients()),
            .bcc = addressesOf(header.getBccRecipients()),
            .subject = header.getSubject(),
            .transactionId = header.getTransactionId(),
            .date = header.getDate(),
            .deliveryTime = header.getDeliveryTime(),
            .expiry = header.getExpiry(),
            .fieldsPresent = header.getFieldsPresent(),
            .type = header.getMessageType(),
            .version = header.getMMSVersion(),
            .messageClass = header.getMessageClass(),
            .priority = header.getPriority(),
            .deliveryReport = header.getDeliveryReport(),
            .readReply = header.getReadReply(),
            .senderVisibility = header.getSenderVisibility()};
}

void restoreEntries(const std::vector<EditedAddress> &addresses, Entries *entries)
{
    entries->clear();
    for (const EditedAddress &address : addresses)
        entries->append(new MMS_UTIL_Entry(entryOf(address)));
}

void restoreHeader(const EditedHeader &state, MMS_UA_UAMsg *header)
{
    header->setFrom(entryOf(state.from));
    restoreEntries(state.to, &header->getToRecipients());
    restoreEntries(state.cc, &header->getCcRecipients());
    restoreEntries(state.bcc, &header->getBccRecipients());
    header->setSubject(state.subject);
    header->setTransactionId(state.transactionId);
    header->setDate(state.date);
    header->setDeliveryTime(state.deliveryTime);
    header->setExpiry(state.expiry);
    header->setFieldsPresent(state.fieldsPresent);
    header->setMessageType(state.type);
    header->setMMSVersion(state.version);
    header->setMessageClass(state.messageClass);
    header->setPriority(state.priority);
    header->setDeliveryReport(state.deliveryReport);
    header->setReadReply(state.readReply);
    header->setSenderVisibility(state.senderVisibility);
}

EditedTime timeOf(const MMS_COMP_SMIL_TIME &time)
{
    return {time.timeType, time.eventId, time.timeValue};
}

EditedObject objectOf(const Object &object, const PartIndexes &indexes)
{
    EditedObject state{.kind = object.getMediaElementType(),
                       .part = indexes.value(object.getData(), -1),
                       .mediaType = object.getMediaType(),
                       .src = object.getSrc(),
                       .regionId = object.getRegionId(),
                       .mimeType = object.getMimeType(),
                       .alt = object.getAlt(),
                       .begin = timeOf(object.getBegin()),
                       .end = timeOf(object.getEnd()),
                       .params = {}};
    for (int i = 0; i < object.getParamCount(); ++i) {
        const auto *param = object.getParam(i);
        state.params.push_back(
            {param->getName(), param->getValue(), param->getValueType(), param->getRefValueType()});
    }
    return state;
}

EditedSlide slideOf(const Slide &slide, const PartIndexes &indexes)
{
    EditedSlide state{.duration = slide.getDur(),
                      .isDurationFixed = slide.getSetDurManually(),
                      .pageColor = {slide.getPageColor()},
                      .textColor = {slide.getTextColor()},
                      .textSize = slide.getTextSize(),
                      .objects = {}};
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        state.objects.push_back(objectOf(*slide.getMediaObject(i), indexes));
    return state;
}

std::unique_ptr<Object> newObject(const EditedObject &state, MMS_COMP_SMILMultipart *parts)
{
    auto object = std::make_unique<Object>(parts);
    object->setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(state.kind));
    object->setMediaType(state.mediaType);
    object->setSrc(state.src);
    object->setRegionId(state.regionId);
    object->setMimeType(state.mimeType);
    object->setAlt(state.alt); // setSrc() set another one
    object->setBeginTimeType(MMS_COMP_SMIL_TIME_TYPE(state.begin.type));
    object->setBeginTimeEvent(state.begin.event);
    object->setBeginTimeLength(state.begin.milliseconds);
    object->setEndTimeType(MMS_COMP_SMIL_TIME_TYPE(state.end.type));
    object->setEndTimeEvent(state.end.event);
    object->setEndTimeLength(state.end.milliseconds);
    object->setData(parts->getBodypartByIndex(state.part));
    for (const EditedParam &param : state.params)
        object->appendParamElem(param.name, param.value,
                                MMS_COMP_SMIL_DEDIA_ELEMENT_PARAM_TYPE(param.valueType),
                                param.refValueType);
    return object;
}

} // namespace

std::unique_ptr<MMS_COMP_SMILTimingContainer> newSlide(const EditedSlide &state,
                                                       MMS_COMP_SMILMultipart *parts)
{
    auto slide = std::make_unique<Slide>(parts);
    for (const EditedObject &object : state.objects)
        slide->appendObject(newObject(object, parts).release());
    slide->setDur(state.duration);
    slide->setSetDurManually(state.isDurationFixed);
    slide->setPageColor(state.pageColor.color);
    slide->setTextColor(state.textColor.color);
    slide->setTextSize(state.textSize);
    return slide;
}

namespace {

EditedFrame frameOf(const MMS_COMP_SMILData &slides, const MMS_COMP_SMILMultipart &parts)
{
    EditedFrame state{.unit = slides.getLayoutMeasureUnit(),
                      .color = {},
                      .regions = {},
                      .metas = {},
                      .mimeType = parts.getMimeType(),
                      .subType = parts.getSubType(),
                      .extType = parts.getExtType(),
                      .start = parts.getStart()};
    if (const MMS_COMP_SMILRootLayout *root = slides.getRootLayout()) {
        state.width = root->getWidth();
        state.height = root->getHeight();
        state.color = {*root->getBackgroundColor()};
    }
    for (unsigned int i = 0; i < slides.getRegionCount(); ++i) {
        const MMS_COMP_SMILRegion &region = *slides.getRegion(i);
        state.regions.push_back({region.getLeft(), region.getTop(), region.getWidth(),
                                 region.getHeight(), region.getFit(), region.getId()});
    }
    for (unsigned int i = 0; i < slides.getMetaCount(); ++i)
        state.metas.emplace_back(slides.getMeta(i)->getName(), slides.getMeta(i)->getContent());
    return state;
}

void restoreLayout(const EditedFrame &state, MMS_COMP_SMILData *slides)
{
    slides->setLayoutMeasureUnit(MMS_COMP_SMIL_UNIT_TYPE_ENUM(state.unit));
    if (MMS_COMP_SMILRootLayout *root = slides->setRootLayout(state.width, state.height))
        *root->getBackgroundColor() = state.color.color;
    auto &regions = *slides->getLayout()->getRegionList();
    regions.clear();
    for (const EditedRegion &values : state.regions) {
        auto region = std::make_unique<MMS_COMP_SMILRegion>();
        region->setLeft(values.left);
        region->setTop(values.top);
        region->setWidth(values.width);
        region->setHeight(values.height);
        region->setFit(MMS_COMP_SMIL_REGION_FIT(values.fit));
        region->setId(values.id);
        regions.append(region.release());
    }
}

template <typename Value>
void share(std::vector<SharedValue<Value>> *values, const std::vector<SharedValue<Value>> &previous)
{
    for (std::size_t i = 0; i < std::min(values->size(), previous.size()); ++i) {
        if ((*values)[i] == previous[i])
            (*values)[i] = previous[i];
    }
}

} // namespace

bool EditedPart::operator==(const EditedPart &other) const
{
    using TextOf = QString (Part::*)() const;
    constexpr TextOf texts[] = {&Part::getDispFileName, &Part::getContentType,
                                &Part::getSubType,      &Part::getCharset,
                                &Part::getDescription,  &Part::getContentLocation,
                                &Part::getContentID,    &Part::getContentXferEncoding};
    const QByteArray &octets = part.getBodyData();
    const QByteArray &others = other.part.getBodyData();
    return part.getDispFileType() == other.part.getDispFileType()
        && part.getRefCount() == other.part.getRefCount()
        && std::ranges::all_of(texts,
                               [&](TextOf text) { return (part.*text)() == (other.part.*text)(); })
        && (octets.constData() == others.constData() ? octets.size() == others.size()
                                                     : octets == others);
}

bool EditedColor::operator==(const EditedColor &other) const
{
    return color.kind == other.color.kind && color.name == other.color.name
        && color.color == other.color.color;
}

EditedState EditedState::of(const QvlMessage &message)
{
    EditedState state{
        headerOf(message.header()), frameOf(message.slides(), message.parts()), {}, {}};
    PartIndexes indexes;
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        const Part *part = message.parts().getBodypartByIndex(i);
        indexes.insert(part, i);
        state.parts.push_back(EditedPart{*part});
    }
    for (unsigned int i = 0; i < message.slides().getTotalSlidesNum(); ++i)
        state.slides.push_back(slideOf(*message.slides().getSlide(i), indexes));
    return state;
}

EditedState EditedState::of(const QvlMessage &message, const EditedState &previous)
{
    EditedState state = of(message);
    if (state.header == previous.header)
        state.header = previous.header;
    if (state.frame == previous.frame)
        state.frame = previous.frame;
    share(&state.parts, previous.parts);
    share(&state.slides, previous.slides);
    return state;
}

void EditedState::restore(QvlMessage *message) const
{
    MMS_COMP_SMILMultipart &body = message->parts();
    body.clear(); // first, so that slides need not give back the uses of each part
    message->slides().clean();
    restoreHeader(*header, &message->header());
    body.setMimeType(frame->mimeType);
    body.setSubType(frame->subType);
    body.setExtType(frame->extType);
    body.setStart(frame->start); // while there is no attachment that it would mark as shown
    for (const auto &part : parts)
        body.appendBodypart(std::make_unique<Part>(part->part).release());
    restoreLayout(*frame, &message->slides());
    for (const auto &[name, content] : frame->metas)
        message->slides().appendMeta(name, content);
    for (const auto &slide : slides)
        message->slides().appendSlide(newSlide(*slide, &body).release());
}
