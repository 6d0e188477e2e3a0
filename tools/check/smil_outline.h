/*
 * The elements of a SMIL text as it was sent, with their places, and which of them the library
 * reads. docs/smil.md describes what is read.
 */
#pragma once

#include <QByteArray>
#include <QString>

#include <utility>
#include <vector>

namespace Check {

/// An attribute that the checks look at.
enum class SmilAttribute : unsigned char { Dur, End, Fit, Height, Id, Region, Src, Width };

/// An element of the SMIL. A document may have a hundred thousand of them.
struct SmilElement
{
    QString tag;
    std::vector<std::pair<SmilAttribute, QString>> attributes; ///< trimmed, except ids
    qint64 line; ///< where it begins, from 1
    qint64 column; ///< from 1
    int level; ///< 0 for the document element
    bool isSkipped; ///< the library passes over it and its content

    /// The value of an attribute; empty if the element does not have it.
    QString value(SmilAttribute attribute) const
    {
        for (const auto &[name, value] : attributes) {
            if (name == attribute)
                return value;
        }
        return QString();
    }
};

/**
 * The elements of @p smil in their order, without the content of those that are skipped. Ends where
 * the text is not well-formed or nested too deep. None if it declares entities or attributes,
 * because expanding them may take long. Linear in the text.
 */
std::vector<SmilElement> smilOutline(const QByteArray &smil);

} // namespace Check
