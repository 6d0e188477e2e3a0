#include "input/smil_diagnosis.h"

#include <qvlsmilparser.h>

#include <QXmlStreamReader>

#include <algorithm>

namespace {

// The place of @p reader in a document that has the text @p before in front of what it reads.
QString placeOf(const QXmlStreamReader &reader, QStringView before)
{
    const bool isFirstLine = reader.lineNumber() == 1;
    const qsizetype skipped =
        isFirstLine ? before.size() - before.lastIndexOf(QLatin1Char('\n')) - 1 : 0;
    return QStringLiteral("line %1, column %2: ")
        .arg(reader.lineNumber() + before.count(QLatin1Char('\n')))
        .arg(reader.columnNumber() + skipped);
}

} // namespace

QString whyNotWellFormed(const QByteArray &smil)
{
    const QString all = QString::fromUtf8(smil);
    const qsizetype start = std::max<qsizetype>(all.indexOf(QLatin1String("<smil")), 0);
    const QString text = all.sliced(start);
    if (text.contains(QLatin1String("<!ENTITY")) || text.contains(QLatin1String("<!ATTLIST")))
        return QString();
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    for (int depth = 0; !reader.atEnd() && depth <= int(QvlDocumentLimits::DeepestNesting);) {
        reader.readNext();
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
    }
    const QString place = placeOf(reader, QStringView(all).first(start));
    if (!reader.atEnd())
        return place
            + QStringLiteral("nested more than %1 levels deep")
                  .arg(QvlDocumentLimits::DeepestNesting);
    return reader.hasError() ? place + reader.errorString() : QString();
}
