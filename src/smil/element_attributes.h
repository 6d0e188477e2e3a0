/*
 * The attributes of one element. The tree looks for an attribute by a hash of its name, which takes
 * longer than all else about it, and most elements have few of those that are asked for.
 */
#pragma once

#include <QDomElement>

/// Looks for attributes as long as there are some that were not found yet.
class ElementAttributes
{
public:
    /// @p element outlives this object.
    explicit ElementAttributes(const QDomElement &element)
        : m_element(element), m_left(element.attributes().length())
    {
    }

    /// The value of @p name, null without such an attribute. Each name may be asked for once.
    QString take(const QString &name)
    {
        if (m_left == 0)
            return QString();
        QString value = m_element.attribute(name);
        if (!value.isNull())
            --m_left;
        return value;
    }

private:
    const QDomElement &m_element;
    int m_left;
};
