#include "input/smil_diagnosis.h"

#include <qvlsmilparser.h>

#include <QXmlStreamReader>

#include <algorithm>

QString SmilMistake::text() const
{
    return QStringLiteral("line %1, column %2: ").arg(place.line).arg(place.column) + reason;
}

namespace {

QString reasonOf(const QXmlStreamReader &reader)
{
    const QString reason = reader.errorString();
    return reason.endsWith(u'.') ? reason.chopped(1) : reason;
}

// Without a declaration of another encoding.
bool isInUtf8(const QXmlStreamReader &reader)
{
    const QStringView encoding = reader.documentEncoding();
    return encoding.isEmpty() || encoding.compare(u"UTF-8", Qt::CaseInsensitive) == 0;
}

// Reads up to the end, the first error, or one level too many. Returns the level.
int readLevels(QXmlStreamReader *reader)
{
    reader->setNamespaceProcessing(false);
    int depth = 0;
    while (!reader->atEnd() && depth <= int(QvlDocumentLimits::DeepestNesting)) {
        reader->readNext();
        depth += reader->isStartElement() ? 1 : reader->isEndElement() ? -1 : 0;
    }
    return depth;
}

} // namespace

std::optional<SmilMistake> findMistake(const QByteArray &smil)
{
    const SmilText text(smil);
    if (text.hasDeclarations())
        return std::nullopt;
    QXmlStreamReader reader(text.text());
    readLevels(&reader);
    const SmilText::Place place = text.placeOf(reader);
    if (!reader.atEnd())
        return SmilMistake{place,
                           QStringLiteral("nested more than %1 levels deep")
                               .arg(QvlDocumentLimits::DeepestNesting)};
    return reader.hasError() ? std::optional(SmilMistake{place, reasonOf(reader)}) : std::nullopt;
}

std::optional<SmilMistake> findXmlMistake(const QByteArray &smil)
{
    if (SmilText(smil).hasDeclarations())
        return std::nullopt;
    QXmlStreamReader reader(smil);
    readLevels(&reader);
    if (!reader.hasError())
        return std::nullopt;
    const auto notUtf8 = isInUtf8(reader) ? SmilText::placeNotUtf8(smil) : std::nullopt;
    if (notUtf8)
        return SmilMistake{*notUtf8, QStringLiteral("an octet is not valid UTF-8")};
    return SmilMistake{{reader.lineNumber(), std::max<qint64>(reader.columnNumber(), 1)},
                       reasonOf(reader)};
}
