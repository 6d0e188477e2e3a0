/*
 * The text of a SMIL part for Qt's XML reader, which finds places in it. The library reads it with
 * another parser and reports no places.
 */
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class QXmlStreamReader;

/// The text from its first "<smil" on, as the library reads it.
class SmilText
{
public:
    /// A place in the part.
    struct Place
    {
        qint64 line; ///< from 1
        qint64 column; ///< from 1

        /// Moves the place to the other side of @p character. A pair of surrogates is one.
        void pass(QChar character);
    };

    explicit SmilText(const QByteArray &smil);

    const QString &text() const { return m_text; }
    /// The line in which the text begins, from 1.
    qint64 lineOfStart() const { return m_linesBefore + 1; }
    /// The column in which the text begins, from 1.
    qint64 columnOfStart() const { return m_columnsBefore + 1; }
    /// Whether the text declares entities or attributes. Expanding them may take long.
    bool hasDeclarations() const;
    /// The place of the first octet that is no UTF-8 in the part; nothing if there is none.
    static std::optional<Place> placeNotUtf8(const QByteArray &smil);
    /// The place of the last character that @p reader, which reads text(), has passed in its line;
    /// of the first one if it passed none.
    Place placeOf(const QXmlStreamReader &reader) const;

private:
    QString m_text;
    qint64 m_linesBefore;
    qint64 m_columnsBefore; // in the line in which the text begins
};
