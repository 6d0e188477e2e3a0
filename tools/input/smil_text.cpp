#include "input/smil_text.h"

#include <QXmlStreamReader>

#include <algorithm>

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

SmilText::Place SmilText::placeOf(const QXmlStreamReader &reader) const
{
    const bool isFirstLine = reader.lineNumber() == 1;
    return {reader.lineNumber() + m_linesBefore,
            reader.columnNumber() + (isFirstLine ? m_columnsBefore : 0)};
}
