/*
 * The presentation model in tests: the visible properties of a media object as one value that can
 * be compared and printed, and helpers that create elements, objects and slides. A field that a row
 * does not set is as in a new object.
 */
#pragma once

#include "multipart/part_facts.h"
#include "presentation/media_object.h"
#include "presentation/presentation.h"
#include "presentation/slide.h"

#include <QDomDocument>
#include <QStringList>

#include <algorithm>
#include <initializer_list>
#include <ostream>
#include <utility>

using Object = MMS_COMP_SMILMediaObject;
using Param = MMS_COMP_SMILMediaObjectParam;
using Slide = MMS_COMP_SMILTimingContainer;
using Presentation = MMS_COMP_SMILData;
using Time = MMS_COMP_SMIL_TIME;

struct TimeFacts
{
    int type = 2;
    QString event = {};
    int length = 0;

    bool operator==(const TimeFacts &) const = default;
};

inline TimeFacts factsOf(const Time &time)
{
    return {time.timeType, time.eventId, time.timeValue};
}

struct ObjectFacts
{
    int type = 5;
    QString mediaType = {};
    QString src = {};
    QString region = {};
    QString mime = {};
    TimeFacts begin = {};
    TimeFacts end = {};
    QString alt = {};
    QStringList params = {}; // each "name|value|value type|type"

    bool operator==(const ObjectFacts &) const = default;
};

inline QString factsOf(const Param &param)
{
    return QStringList{param.getName(), param.getValue(), QString::number(param.getValueType()),
                       param.getRefValueType()}
        .join('|');
}

inline QStringList paramsOf(const Object &object)
{
    QStringList params;
    for (int i = 0; i < object.getParamCount(); ++i)
        params += factsOf(*object.getParam(i));
    return params;
}

inline ObjectFacts factsOf(const Object &object)
{
    return {.type = object.getMediaElementType(),
            .mediaType = object.getMediaType(),
            .src = object.getSrc(),
            .region = object.getRegionId(),
            .mime = object.getMimeType(),
            .begin = factsOf(object.getBegin()),
            .end = factsOf(object.getEnd()),
            .alt = object.getAlt(),
            .params = paramsOf(object)};
}

inline void PrintTo(const TimeFacts &time, std::ostream *out)
{
    *out << time.type << " '" << time.event.toStdString() << "' " << time.length;
}

inline void PrintTo(const ObjectFacts &facts, std::ostream *out)
{
    *out << "type " << facts.type;
    for (const QString &text : {facts.mediaType, facts.src, facts.region, facts.mime, facts.alt,
                                facts.params.join(' ')}) {
        *out << ' ';
        PrintTo(text, out);
    }
    *out << " begin ";
    PrintTo(facts.begin, out);
    *out << " end ";
    PrintTo(facts.end, out);
}

/// A media element in its own document. A null value means no attribute.
class Element
{
public:
    using Attributes = std::initializer_list<std::pair<const char *, QString>>;

    explicit Element(const QString &tag, Attributes attributes = {})
        : m_element(newElement(tag, attributes))
    {
    }

    void appendChild(const QString &tag, Attributes attributes)
    {
        m_element.appendChild(newElement(tag, attributes));
    }

    operator QDomElement *() { return &m_element; }

private:
    QDomElement newElement(const QString &tag, Attributes attributes)
    {
        QDomElement element = m_document.createElement(tag);
        for (const auto &[name, value] : attributes) {
            if (!value.isNull())
                element.setAttribute(name, value);
        }
        return element;
    }

    QDomDocument m_document;
    QDomElement m_element;
};

/// Appends a new part, which stays the message's.
inline Part *addPart(Multipart &multipart, const PartFacts &facts)
{
    auto *part = new Part(partWith(facts));
    multipart.appendBodypart(part);
    return part;
}

/// A new object of a kind, bound to @p part unless that is null.
inline Object *newObject(MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE type, const QString &src = {},
                         Multipart *multipart = nullptr, Part *part = nullptr)
{
    auto *object = new Object(multipart);
    object->setMediaElementType(type);
    object->setSrc(src);
    object->setData(part);
    return object;
}

/// Kinds by letter: audio, video, text, image, ref and unknown.
constexpr char KindLetters[] = "avtir?";

inline MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE kindOf(char letter)
{
    return MMS_COMP_SMIL_MEDIA_ELEMENT_TYPE(std::find(KindLetters, KindLetters + 5, letter)
                                            - KindLetters);
}

/// The kinds of a slide's objects in order: "ti" is a text followed by an image.
inline QString kindsOf(const Slide &slide)
{
    QString kinds;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        kinds += QChar(KindLetters[slide.getMediaObject(i)->getMediaElementType()]);
    return kinds;
}

/// Appends objects without content. The src of each is its letter and index, such as "t0".
inline void appendKinds(Slide &slide, const QString &kinds)
{
    for (const QChar letter : kinds)
        slide.appendObject(newObject(kindOf(letter.toLatin1()),
                                     letter + QString::number(slide.getMediaObjectCount())));
}

inline QStringList sourcesOf(const Slide &slide)
{
    QStringList sources;
    for (unsigned int i = 0; i < slide.getMediaObjectCount(); ++i)
        sources += slide.getMediaObject(i)->getSrc();
    return sources;
}

inline QStringList locationsOf(const Multipart &multipart)
{
    QStringList locations;
    for (int i = 0; i < multipart.getPartCount(); ++i)
        locations += multipart.getBodypartByIndex(i)->getContentLocation();
    return locations;
}
