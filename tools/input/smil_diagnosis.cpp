#include "input/smil_diagnosis.h"

#include <qvlsmilparser.h>

#include <QXmlStreamReader>

QString SmilMistake::text() const
{
    return QStringLiteral("line %1, column %2: ").arg(place.line).arg(place.column) + reason;
}

std::optional<SmilMistake> findMistake(const QByteArray &smil)
{
    const SmilText text(smil);
    if (text.hasDeclarations())
        return std::nullopt;
    QXmlStreamReader reader(text.text());
    reader.setNamespaceProcessing(false);
    for (int depth = 0; !reader.atEnd() && depth <= int(QvlDocumentLimits::DeepestNesting);) {
        reader.readNext();
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
    }
    const SmilText::Place place = text.placeOf(reader);
    if (!reader.atEnd())
        return SmilMistake{place,
                           QStringLiteral("nested more than %1 levels deep")
                               .arg(QvlDocumentLimits::DeepestNesting)};
    if (reader.hasError())
        return SmilMistake{place, reader.errorString()};
    return std::nullopt;
}
