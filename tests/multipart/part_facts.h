/*
 * Body parts in tests: the visible properties of a part as one value, from which parts are created,
 * and which compares with parts and is printed when a test fails. A field that a row does not set
 * is as in a new part.
 */
#pragma once

#include "multipart/body_part.h"
#include "multipart/multipart.h"
#include "support/octets.h"

#include <QList>

#include <initializer_list>
#include <ostream>

using Part = MMS_COMP_SMILMultipartBodypart;
using Multipart = MMS_COMP_SMILMultipart;

struct PartFacts
{
    QString format = "/"; // type and subtype
    QString charset = {};
    QString location = {};
    QString id = {};
    QString name = {};
    QByteArray data = {};
    int display = Part::Attachment;
    int refCount = 1;

    bool operator==(const PartFacts &) const = default;
};

inline PartFacts factsOf(const Part &part)
{
    return {.format = part.getMimeFormat(),
            .charset = part.getCharset(),
            .location = part.getContentLocation(),
            .id = part.getContentID(),
            .name = part.getDispFileName(),
            .data = part.getBodyData(),
            .display = part.getDispFileType(),
            .refCount = part.getRefCount()};
}

inline QList<PartFacts> factsOf(const Multipart &multipart)
{
    QList<PartFacts> facts;
    for (int i = 0; i < multipart.getPartCount(); ++i)
        facts += factsOf(*multipart.getBodypartByIndex(i));
    return facts;
}

inline Part partWith(const PartFacts &facts)
{
    Part part;
    part.setContentType(facts.format.section('/', 0, 0));
    part.setContentSubType(facts.format.section('/', 1));
    part.setCharset(facts.charset);
    part.setContentLocation(facts.location);
    part.setContentID(facts.id);
    part.setDispFileName(facts.name);
    part.setBodyData(facts.data);
    part.setDispFileType(facts.display);
    part.setRefCount(facts.refCount);
    return part;
}

/// Appends a new part for every row.
template <typename Rows = std::initializer_list<PartFacts>>
void appendParts(Multipart &multipart, const Rows &rows)
{
    for (const PartFacts &facts : rows)
        multipart.appendBodypart(new Part(partWith(facts)));
}

inline void PrintTo(const PartFacts &facts, std::ostream *out)
{
    for (const QString &text :
         {facts.format, facts.charset, facts.location, facts.id, facts.name}) {
        PrintTo(text, out);
        *out << ' ';
    }
    *out << "display " << facts.display << " references " << facts.refCount << ' ';
    PrintTo(facts.data, out);
}
