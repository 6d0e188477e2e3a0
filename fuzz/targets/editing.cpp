/*
 * A composer's session: two messages with a presentation each, and a sequence of operations that
 * the input selects. Checks ownership, reference counts and order after every operation.
 */
#include "support/input.h"
#include "support/invariant.h"

#include <qvlsmilparser.h>

#include <QDataStream>
#include <QIODevice>

#include <memory>
#include <tuple>

namespace {

using Object = MMS_COMP_SMILMediaObject;
using Part = MMS_COMP_SMILMultipartBodypart;
using Slide = MMS_COMP_SMILTimingContainer;

constexpr unsigned int MostSlides = 12;
constexpr int MostParts = 24;

const char *const names[] = {"a.txt", "b.jpg", "c.amr", "d.3gp", "a_0.txt", "", "/x", "s.smil"};
const char *const kinds[] = {"text", "img", "audio", "video", "IMG", "ref", "nothing"};

struct Draft
{
    MMS_COMP_SMILMultipart body;
    MMS_COMP_SMILData slides{&body};
};

void checkObject(const Object &object)
{
    const Part *part = object.getData();
    if (!part)
        return;
    require(part->getBodyDataLen() == part->getBodyData().size(), "a bound part exists");
}

void check(const Draft &draft)
{
    for (int i = 0; i < draft.body.getPartCount(); ++i) {
        const Part *part = draft.body.getBodypartByIndex(i);
        require(part->isHeldByMultipart(), "a part in a message is marked as held by it");
        for (int j = 0; j < i; ++j)
            require(draft.body.getBodypartByIndex(j) != part, "a part is in a message once");
    }
    for (unsigned int i = 0; i < draft.slides.getTotalSlidesNum(); ++i) {
        for (unsigned int j = 0; j < draft.slides.getMediaObjectCount(i); ++j)
            checkObject(*draft.slides.getMediaObject(i, j));
    }
    require(draft.body.getAttachmentCount() <= draft.body.getPartCount(),
            "an attachment is a part");
}

class Session
{
public:
    Session(const std::uint8_t *data, std::size_t size) : m_input(data, size) { }

    void run()
    {
        for (int steps = 0; !m_input.isAtEnd() && steps < 200; ++steps) {
            step();
            for (const Draft &draft : m_drafts)
                check(draft);
        }
    }

private:
    using Operation = void (Session::*)();

    QString name() { return QString::fromLatin1(m_input.oneOf(names)); }
    QString kind() { return QString::fromLatin1(m_input.oneOf(kinds)); }
    QByteArray octets() { return m_input.text(16); }
    int index() { return m_input.number(-1, 13); }
    Slide *slide()
    {
        const unsigned int count = m_draft->slides.getTotalSlidesNum();
        return count == 0 ? nullptr : m_draft->slides.getSlide(unsigned(index() + 1) % count);
    }

    void step();
    void appendPart();
    void insertPart();
    void deletePart();
    void deletePartBySrc();
    void setStart();
    void findSmilPart();
    void appendSlide();
    void placeData();
    void takeElement();
    void removeElement();
    void removeObject();
    void insertNewObject();
    void clearObject();
    void recolor();
    void storeAndRead();
    void copySlides();
    void copyParts();
    void makeForMixed();
    void writeAndRead();
    void nameThings();
    void cleanUp();

    Input m_input;
    Part m_part; // belongs to the application, so no object may delete it
    Draft m_drafts[2];
    Draft *m_draft = m_drafts;
};

void Session::step()
{
    static constexpr Operation operations[] = {
        &Session::appendPart,      &Session::insertPart,   &Session::deletePart,
        &Session::deletePartBySrc, &Session::setStart,     &Session::findSmilPart,
        &Session::appendSlide,     &Session::placeData,    &Session::takeElement,
        &Session::removeElement,   &Session::removeObject, &Session::insertNewObject,
        &Session::clearObject,     &Session::recolor,      &Session::storeAndRead,
        &Session::copySlides,      &Session::copyParts,    &Session::makeForMixed,
        &Session::writeAndRead,    &Session::nameThings,   &Session::cleanUp,
    };
    m_draft = &m_drafts[m_input.boolean() ? 1 : 0];
    (this->*m_input.oneOf(operations))();
}

std::unique_ptr<Part> newPart(const QString &name, const QByteArray &octets)
{
    auto part = std::make_unique<Part>();
    part->setContentLocation(name);
    part->setContentID(QLatin1Char('<') + name + QLatin1Char('>'));
    QString type = QStringLiteral("application");
    QString subtype = QStringLiteral("octet-stream");
    MMS_COMP_Util::getMIMETypeByExtName(MMS_COMP_Util::getExtName(name), type, subtype);
    part->setContentType(type);
    part->setContentSubType(subtype);
    part->setBodyData(octets);
    return part;
}

void Session::appendPart()
{
    if (m_draft->body.getPartCount() < MostParts)
        m_draft->body.appendBodypart(newPart(name(), octets()).release());
}

void Session::insertPart()
{
    if (m_draft->body.getPartCount() >= MostParts)
        return;
    const int before = m_draft->body.getPartCount();
    auto *part = newPart(name(), octets()).release();
    const int result = m_draft->body.insertBodypart(part, index());
    require(result == MultipartResult::Ok && m_draft->body.holds(part), "a part is inserted");
    require(m_draft->body.getPartCount() == before + 1, "inserting adds one part");
}

void Session::deletePart()
{
    m_draft->body.deletePart(index());
}

void Session::deletePartBySrc()
{
    m_draft->body.deletePartBySrc(name());
}

void Session::setStart()
{
    m_draft->body.setStart(name());
    m_draft->body.setSubType(m_input.boolean() ? QStringLiteral("vnd.wap.multipart.mixed")
                                               : QStringLiteral("vnd.wap.multipart.related"));
}

void Session::findSmilPart()
{
    const Part *part = m_draft->body.getSmilPart();
    require(!part || m_draft->body.holds(part), "the presentation part is in the message");
}

void Session::appendSlide()
{
    if (m_draft->slides.getTotalSlidesNum() < MostSlides)
        require(m_draft->slides.appendSlide(m_input.number(0U, ~0U)) != nullptr,
                "a slide is appended");
}

void Session::placeData()
{
    Slide *target = slide();
    if (!target || m_draft->body.getPartCount() >= MostParts)
        return;
    const auto type = MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(m_input.number(0, 5));
    target->updateData(m_draft->slides.getTextRegionId(), m_draft->slides.createUniqueSrc(name()),
                       type, QStringLiteral("plain"), octets(), m_input.boolean(), &m_draft->body);
}

void Session::takeElement()
{
    Slide *target = slide();
    if (!target)
        return;
    Object *(Slide::*const takes[])(bool) = {&Slide::getTextElem, &Slide::getVideoElem,
                                             &Slide::getImgObjectLikeElem, &Slide::getAudioElem};
    const unsigned int before = target->getMediaObjectCount();
    const auto take = m_input.oneOf(takes);
    Object *object = (target->*take)(true);
    require(target->getMediaObjectCount() == before - (object ? 1 : 0),
            "a taken object is removed");
    if (!object || target->insert(unsigned(index()), object))
        return;
    const Part *part = object->getData();
    if (part && !part->isHeldByMultipart())
        object->clear(); // no other owner deletes it
    delete object;
}

void Session::removeElement()
{
    Slide *target = slide();
    if (!target)
        return;
    switch (m_input.number(0, 2)) {
    case 0:
        return target->removeTextElem();
    case 1:
        return target->removeImgLikeElem();
    default:
        return target->removeBySrc(name());
    }
}

void Session::removeObject()
{
    m_draft->slides.deleteMediaObject(unsigned(index()), unsigned(index()));
}

void Session::insertNewObject()
{
    Slide *target = slide();
    if (!target || target->getMediaObjectCount() > 8)
        return;
    const QString element = kind();
    const bool room = target->canBeInserted(element);
    auto object = std::make_unique<Object>(&m_draft->body);
    object->setMediaElementType(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(m_input.number(0, 5)));
    object->setSrc(name());
    Part *part = m_draft->body.getBodypartByIndex(index());
    object->setData(part ? part : &m_part);
    if (room)
        target->appendObject(object.release());
    else if (target->insert(unsigned(index()), object.get()))
        object.release();
}

void Session::clearObject()
{
    if (Object *object = m_draft->slides.getMediaObject(unsigned(index()), unsigned(index()))) {
        object->clear();
        require(!object->getData(), "a cleared object has no part");
    }
}

void Session::recolor()
{
    Slide *target = slide();
    if (!target)
        return;
    MMS_COMP_COLOR color;
    MMS_COMP_SMILParser::parseColor(QString::fromLatin1(octets()), color);
    target->setPageColor(color);
    target->setTextColor(color);
    target->setTextSize(name());
    target->updatePageColorToElem();
    target->updateTextColorToElem();
    target->updateTextSizeToElem();
    target->updatePageColorFromElem();
}

void Session::storeAndRead()
{
    Slide *source = slide();
    if (!source || m_draft->slides.getTotalSlidesNum() >= MostSlides)
        return;
    QByteArray record;
    QDataStream out(&record, QIODevice::WriteOnly);
    source->writeToStream(out);
    QDataStream in(record);
    auto read = std::make_unique<Slide>(&m_draft->body);
    read->readFromStream(in);
    require(read->getMediaObjectCount() == source->getMediaObjectCount(),
            "a stored slide has as many objects");
    if (m_input.boolean())
        m_draft->slides.appendSlide(read.release());
}

void Session::copySlides()
{
    const Draft &source = m_drafts[m_draft == m_drafts ? 1 : 0];
    if (source.slides.getTotalSlidesNum() + m_draft->slides.getTotalSlidesNum() <= MostSlides)
        source.slides.copyTo(&m_draft->slides, &m_draft->body);
}

void Session::copyParts()
{
    const Draft &source = m_drafts[m_draft == m_drafts ? 1 : 0];
    if (source.body.getPartCount() + m_draft->body.getPartCount() <= MostParts)
        m_draft->body.copyFrom(source.body);
}

void Session::makeForMixed()
{
    if (m_draft->slides.getTotalSlidesNum() + unsigned(m_draft->body.getPartCount()) > MostSlides)
        return;
    MMS_COMP_SMILParser::makeSmilForMixed(&m_draft->body, &m_draft->slides, m_input.boolean());
}

void Session::writeAndRead()
{
    m_draft->slides.removeEmptyTextBeforeSend();
    MMS_UTIL_MsgHeaderBase header;
    const QByteArray text = MMS_COMP_SMILParser::convertToSMILLang(&m_draft->slides).toUtf8();
    const QByteArray octets = MMS_COMP_SMILMultipartParser::assembleBody(&m_draft->body, &header);
    Draft received;
    if (MMS_COMP_SMILMultipartParser::parse(octets, &header, &received.body) == MultipartResult::Ok)
        std::ignore = MMS_COMP_SMILParser().parse(text, &received.body, &received.slides);
    check(received);
}

void Session::nameThings()
{
    const QString wanted = QString::fromUtf8(octets());
    const MMS_COMP_SMILMultipart &body = m_draft->body;
    require(!body.isPartExist(body.createUniqueLocation(wanted)), "a new location is free");
    require(!body.isPartExist(body.createUniqueAttchmentLocation(wanted)),
            "a new attachment's location is free");
    const QString src = m_draft->slides.createUniqueSrc(wanted);
    require(!body.isPartExist(src) && !m_draft->slides.isElemNameExist(src),
            "a new source is free");
}

void Session::cleanUp()
{
    switch (m_input.number(0, 3)) {
    case 0:
        return m_draft->body.clear();
    case 1:
        return m_draft->slides.clean();
    case 2:
        return m_draft->slides.deleteObjectByDataLocation(name());
    default:
        if (Slide *target = slide())
            target->clear();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Session(data, size).run();
    return 0;
}
