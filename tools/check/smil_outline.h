/*
 * The elements of a SMIL text as it was sent, with their places, and which of them the library
 * reads. docs/smil.md describes what is read.
 */
#pragma once

#include <QByteArray>
#include <QString>
#include <QXmlStreamAttributes>

#include <vector>

namespace Check {

/// An element of the SMIL.
struct SmilElement
{
    QString tag;
    QXmlStreamAttributes attributes;
    qint64 line; ///< where it begins, from 1
    qint64 column; ///< from 1
    bool isSkipped; ///< the library passes over it and its content

    /// The value of an attribute, trimmed.
    QString value(QLatin1StringView name) const
    {
        return attributes.value(name).trimmed().toString();
    }
};

/**
 * The elements of @p smil in their order, without the content of those that are skipped. Ends where
 * the text is not well-formed or nested too deep. None if it declares entities or attributes,
 * because expanding them may take long. Linear in the text.
 */
std::vector<SmilElement> smilOutline(const QByteArray &smil);

} // namespace Check
