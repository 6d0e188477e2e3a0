#include "input/smil_text.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

#include <algorithm>

void SmilText::Place::pass(QChar character)
{
    const bool endsLine = character == u'\n';
    line += endsLine;
    column = endsLine ? 1 : column + !character.isLowSurrogate();
}

SmilText::SmilText(const QByteArray &smil)
{
    const QString all = QString::fromUtf8(smil);
    const qsizetype start = std::max<qsizetype>(all.indexOf(QLatin1StringView("<smil")), 0);
    const QStringView before = QStringView(all).first(start);
    m_text = all.sliced(start);
    m_linesBefore = before.count(u'\n');
    m_columnsBefore = before.size() - before.lastIndexOf(u'\n') - 1;
}

bool SmilText::hasDeclarations() const
{
    return m_text.contains(QLatin1StringView("<!ENTITY"))
        || m_text.contains(QLatin1StringView("<!ATTLIST"));
}

std::optional<SmilText::Place> SmilText::placeNotUtf8(const QByteArray &smil)
{
    if (smil.isValidUtf8())
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8);
    Place place{1, 1};
    for (char octet : smil) {
        const QString text = decoder(QByteArrayView(&octet, 1));
        if (decoder.hasError())
            break;
        for (QChar character : text)
            place.pass(character);
    }
    return place;
}

SmilText::Place SmilText::placeOf(const QXmlStreamReader &reader) const
{
    const bool isFirstLine = reader.lineNumber() == 1;
    return {reader.lineNumber() + m_linesBefore,
            std::max<qint64>(reader.columnNumber(), 1) + (isFirstLine ? m_columnsBefore : 0)};
}
