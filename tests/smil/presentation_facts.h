/*
 * Presentations in tests: a message with parts of every kind, and slides, regions, metas and params
 * as lines of text.
 */
#pragma once

#include "presentation/media_kinds.h"
#include "presentation/presentation.h"
#include "presentation/smil_result.h"
#include "smil/smil_parser.h"
#include "support/octets.h"

#include <QStringList>

#include <memory>

/// A presentation of a message whose parts are t1.txt, t2.txt, i1.jpg, i2.jpg, v.3gp and a.amr.
struct SmilMessage
{
    SmilMessage()
    {
        for (const char *location : {"t1.txt", "t2.txt", "i1.jpg", "i2.jpg", "v.3gp", "a.amr"}) {
            auto part = std::make_unique<MMS_COMP_SMILMultipartBodypart>();
            part->setContentLocation(location);
            multipart.appendBodypart(part.release());
        }
    }

    /// Reads the text of a document; @p parser has the last warning.
    int read(const QByteArray &text) { return parser.parse(text, &multipart, &data); }

    MMS_COMP_SMILMultipart multipart;
    MMS_COMP_SMILData data{&multipart};
    MMS_COMP_SMILParser parser;
};

/// A document of a head and a body.
inline QByteArray documentOf(const QByteArray &head, const QByteArray &body = {})
{
    return "<smil><head>" + head + "</head><body>" + body + "</body></smil>";
}

/// "text t1.txt": the kind and the location.
inline QString lineOf(const MMS_COMP_SMILMediaObject &object)
{
    const QvlMediaKind *kind = qvlMediaKind(object.getMediaElementType());
    return QString("%1 %2").arg(kind ? kind->tag : QLatin1StringView("unknown"), object.getSrc());
}

/// "5000: text t1.txt, img i1.jpg" for every slide.
inline QStringList slidesOf(const MMS_COMP_SMILData &data)
{
    QStringList slides;
    for (unsigned int i = 0; i < data.getTotalSlidesNum(); ++i) {
        QStringList objects;
        for (unsigned int j = 0; j < data.getMediaObjectCount(i); ++j)
            objects += lineOf(*data.getMediaObject(i, j));
        slides += QString("%1: %2").arg(data.getSlide(i)->getDur()).arg(objects.join(", "));
    }
    return slides;
}

/// "text 0,160 120x160 0" for every region: id, left, top, width, height, fit.
inline QStringList regionsOf(const MMS_COMP_SMILData &data)
{
    QStringList regions;
    for (unsigned int i = 0; i < data.getRegionCount(); ++i) {
        const MMS_COMP_SMILRegion &region = *data.getRegion(i);
        regions += QString("%1 %2,%3 %4x%5 %6")
                       .arg(region.getId())
                       .arg(region.getLeft())
                       .arg(region.getTop())
                       .arg(region.getWidth())
                       .arg(region.getHeight())
                       .arg(region.getFit());
    }
    return regions;
}

/// "name=content" for every meta.
inline QStringList metasOf(const MMS_COMP_SMILData &data)
{
    QStringList metas;
    for (unsigned int i = 0; i < data.getMetaCount(); ++i)
        metas += data.getMeta(i)->getName() + '=' + data.getMeta(i)->getContent();
    return metas;
}

/// The region ids of all media objects.
inline QStringList objectRegionsOf(const MMS_COMP_SMILData &data)
{
    QStringList ids;
    for (unsigned int i = 0; i < data.getTotalSlidesNum(); ++i) {
        for (unsigned int j = 0; j < data.getMediaObjectCount(i); ++j)
            ids += data.getMediaObject(i, j)->getRegionId();
    }
    return ids;
}

/// "name=value 0 type" for every param: name, value, value type, type.
inline QStringList paramLinesOf(const MMS_COMP_SMILMediaObject &object)
{
    QStringList params;
    for (int i = 0; i < object.getParamCount(); ++i) {
        const MMS_COMP_SMILMediaObjectParam &param = *object.getParam(i);
        params += QString("%1=%2 %3 %4")
                      .arg(param.getName(), param.getValue())
                      .arg(param.getValueType())
                      .arg(param.getRefValueType());
    }
    return params;
}

// Used by GoogleTest, which otherwise prints the characters' codes.
inline void PrintTo(const QStringList &lines, std::ostream *out)
{
    PrintTo(lines.join(" | "), out);
}
