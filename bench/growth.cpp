/*
 * Growth: measures every operation on a whole message at one size and at twice that size.
 */
#include "subjects.h"
#include "support/benchmarks.h"
#include "support/messages.h"
#include "support/presentations.h"

#include <functional>
#include <memory>

namespace {

using Message = MMS_COMP_SMILMultipart;
using Operation = std::function<bool()>;
using Prepare = Operation (*)(int size);

struct Row
{
    const char *name;
    int size;
    Prepare prepare;
};

constexpr int OctetsOfPart = 1000;
constexpr int LargestHalf = 127; // a body has one octet for the count of its parts

std::shared_ptr<Message> picturesOf(int parts, Names names)
{
    auto message = std::make_shared<Message>();
    addPictures(message.get(), parts, parts * OctetsOfPart, names);
    return message;
}

std::shared_ptr<Message> textsOf(int parts)
{
    auto message = std::make_shared<Message>();
    message->setSubType(QStringLiteral("vnd.wap.multipart.mixed"));
    for (int i = 0; i < parts; ++i) {
        auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
        part->setContentType(QStringLiteral("text"));
        part->setContentSubType(QStringLiteral("plain"));
        part->setContentLocation(QStringLiteral("text%1.txt").arg(i));
        part->setBodyData(QByteArray("text"));
        message->appendBodypart(part.release());
    }
    return message;
}

template <Names names>
Operation parseParts(int parts)
{
    return [body = assembled(picturesOf(parts, names).get())] {
        MMS_UA_UAMsg header;
        Message message;
        return parseBody(body, &header, &message) && message.getPartCount() > 0;
    };
}

// Uses the message with @p parts parts once, without changing it.
template <auto Use>
Operation onParts(int parts)
{
    return [message = picturesOf(parts, Names::Given), parts] { return Use(message.get(), parts); };
}

// Uses a presentation of a shape once, without changing it.
template <Shape (*ShapeOf)(int), auto Use>
Operation onSlides(int size)
{
    auto show = std::make_shared<QvlMessage>();
    fill(show.get(), ShapeOf(size));
    return [show] { return Use(show.get()); };
}

// Calls @p fill with a copy of @p message and new slides. Deletes the copy first: slides deleted
// before their message look up each of their parts among all.
template <typename Fill>
bool onCopy(const Message &message, Fill fill)
{
    auto copy = std::make_unique<Message>();
    copy->copyFrom(message);
    MMS_COMP_SMILData slides(copy.get());
    const bool filled = fill(copy.get(), &slides);
    copy.reset();
    return filled;
}

template <Shape (*ShapeOf)(int)>
Operation readSlides(int size)
{
    auto message = std::make_shared<Message>();
    addShownParts(message.get(), ShapeOf(size));
    return [message, smil = smilOf(ShapeOf(size))] {
        return onCopy(*message, [&smil](Message *copy, MMS_COMP_SMILData *slides) {
            return MMS_COMP_SMILParser().parse(smil, copy, slides) == SmilResult::Ok;
        });
    };
}

Shape withSlides(int size)
{
    return {.slides = size};
}

Shape withOwnParts(int size)
{
    return {.slides = size, .ownParts = true};
}

Shape withRegions(int size)
{
    return {.regions = size};
}

Shape withParams(int size)
{
    return {.params = size};
}

bool copyParts(Message *message, int parts)
{
    Message copy;
    copy.copyFrom(*message);
    return copy.getPartCount() == parts;
}

// The parts of the copy have no names, or all have the same name.
template <bool Shared>
bool nameParts(Message *message, int)
{
    Message copy;
    copy.copyFrom(*message);
    for (int i = 0; i < copy.getPartCount(); ++i) {
        copy.getBodypartByIndex(i)->setContentLocation(QString());
        copy.getBodypartByIndex(i)->setContentID(QString());
        if (Shared)
            copy.getBodypartByIndex(i)->setDispFileName(QStringLiteral("same.jpg"));
    }
    MMS_COMP_SMILMultipartParser::checkLocation(&copy);
    return !copy.getBodypartByIndex(0)->getContentLocation().isEmpty();
}

bool assembleParts(Message *message, int)
{
    return !assembled(message).isEmpty();
}

bool findPart(Message *message, int parts)
{
    const QString last = QStringLiteral("picture%1.jpg").arg(parts - 1);
    return message->isPartExist(last) && message->getAttachment(parts - 1)
        && message->getAttachmentCount() == parts
        && message->getBodyPartBySrc(last, MMS_COMP_SMILMultipartBodypart::Attachment);
}

bool nameNewPart(Message *message, int)
{
    return !message->createUniqueLocation(QStringLiteral("picture0.jpg")).isEmpty()
        && !message->createUniqueAttchmentLocation(QStringLiteral("jpg")).isEmpty();
}

Operation makeSlides(int parts)
{
    return [message = textsOf(parts)] {
        return onCopy(*message, [](Message *copy, MMS_COMP_SMILData *slides) {
            return MMS_COMP_SMILParser::makeSmilForMixed(copy, slides, true) == 1;
        });
    };
}

bool writeSlides(QvlMessage *show)
{
    return !MMS_COMP_SMILParser::convertToSMILLang(&show->slides()).isEmpty();
}

bool normalizeSlides(QvlMessage *show)
{
    return MMS_COMP_SMILParser::updateToCorvaneRegion(&show->slides()) == 1;
}

bool copySlides(QvlMessage *show)
{
    return onCopy(show->parts(), [show](Message *copy, MMS_COMP_SMILData *slides) {
        return show->slides().copyTo(slides, copy);
    });
}

bool cleanSlides(QvlMessage *show)
{
    show->slides().removeEmptyTextBeforeSend();
    return !show->slides().isEmpty();
}

bool exchangeParams(QvlMessage *show)
{
    show->slides().updateParamToSlide();
    show->slides().updateParamFromSlide();
    return true;
}

bool setMessage(QvlMessage *show)
{
    show->slides().setMultiPart(&show->parts());
    return true;
}

bool nameNewSource(QvlMessage *show)
{
    return !show->slides().createUniqueSrc(QStringLiteral("picture0.jpg")).isEmpty()
        && show->slides().isElemNameExist(QStringLiteral("picture0.jpg"));
}

std::shared_ptr<MMS_UA_UAMsg> headerTo(int recipients)
{
    auto header = std::make_shared<MMS_UA_UAMsg>();
    fillHeader(header.get(), QvlMessageType::SendReq);
    while (header->getToRecipients().count() < recipients)
        header->addToRecipient(*header->getToRecipients().at(0));
    return header;
}

Operation decodeRecipients(int recipients)
{
    return [pdu = encodedHeader(headerTo(recipients).get())] {
        MMS_UA_UAMsg header;
        return decodeHeader(pdu, &header);
    };
}

Operation encodeRecipients(int recipients)
{
    return [header = headerTo(recipients)] { return !encodedHeader(header.get()).isEmpty(); };
}

constexpr Row rows[] = {
    {"recipients, decode", 250, decodeRecipients},
    {"recipients, encode", 250, encodeRecipients},
    {"parts, parse named", LargestHalf, parseParts<Names::Given>},
    {"parts, parse unnamed", LargestHalf, parseParts<Names::Missing>},
    {"parts, assemble", LargestHalf, onParts<assembleParts>},
    {"parts, copy", 250, onParts<copyParts>},
    {"parts, name all", 250, onParts<nameParts<false>>},
    {"parts, name all the same", 250, onParts<nameParts<true>>},
    {"parts, name a new one", 250, onParts<nameNewPart>},
    {"parts, find", 250, onParts<findPart>},
    {"parts, make slides", 250, makeSlides},
    {"slides, read", 50, readSlides<withSlides>},
    {"slides, write", 250, onSlides<withSlides, writeSlides>},
    {"slides, normalize", 250, onSlides<withSlides, normalizeSlides>},
    {"slides, copy", 250, onSlides<withSlides, copySlides>},
    {"slides, remove empty texts", 250, onSlides<withSlides, cleanSlides>},
    {"slides, exchange params", 250, onSlides<withSlides, exchangeParams>},
    {"slides, set message", 250, onSlides<withSlides, setMessage>},
    {"slides, name a new source", 250, onSlides<withSlides, nameNewSource>},
    {"slides with own parts, read", 50, readSlides<withOwnParts>},
    {"slides with own parts, copy", 125, onSlides<withOwnParts, copySlides>},
    {"slides with own parts, name a new source", 125, onSlides<withOwnParts, nameNewSource>},
    {"regions, read", 100, readSlides<withRegions>},
    {"regions, write", 800, onSlides<withRegions, writeSlides>},
    {"regions, normalize", 800, onSlides<withRegions, normalizeSlides>},
    {"regions, copy", 800, onSlides<withRegions, copySlides>},
    {"params, read", 50, readSlides<withParams>},
    {"params, write", 250, onSlides<withParams, writeSlides>},
    {"params, copy", 250, onSlides<withParams, copySlides>},
    {"params, exchange", 250, onSlides<withParams, exchangeParams>},
};

} // namespace

void addGrowthBenchmarks()
{
    for (const Row &row : rows) {
        for (int size : {row.size, 2 * row.size}) {
            addBenchmark(std::string("growth/") + row.name + '/' + std::to_string(size),
                         [=] { return Work{row.prepare(size)}; });
        }
    }
}
