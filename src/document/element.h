/*
 * The parts of a document that the SMIL reader needs: elements with their attributes and children,
 * in the order of the text. Text, comments and instructions are not kept. The parser, or a copy of
 * a QDomElement tree, fills a document in one pass.
 */
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

class QDomElement;
class SmilDocument;

/// An element, or none. Refers to its document, which must outlive it and not change.
class SmilElement
{
public:
    SmilElement() = default;

    bool isNull() const { return !m_document; }

    /// The name including its prefix; empty for no element.
    QString tag() const;

    /// The value of the attribute @p name; null when there is none. Linear in the attributes.
    QString attribute(QStringView name) const;

    SmilElement firstChild() const;
    SmilElement nextSibling() const;

private:
    friend class SmilDocument;
    SmilElement(const SmilDocument *document, std::uint32_t index);

    const SmilDocument *m_document = nullptr;
    std::uint32_t m_index = 0;
};

/// Elements in the order of the text, the document element first.
class SmilDocument
{
public:
    struct Attribute
    {
        QString name;
        QString value;
    };

    SmilDocument() = default;
    /// Copies @p root and the elements within, with the attributes that the SMIL reader knows.
    explicit SmilDocument(const QDomElement &root);

    /// The document element; none for an empty document.
    SmilElement root() const;

    /// Begins an element within the innermost open element.
    void beginElement(const QString &tag);
    /// Adds an attribute to the element that was begun last.
    void addAttribute(const QString &name, const QString &value);
    /// Ends the innermost open element.
    void endElement();

    /// Count of open elements.
    std::size_t depth() const { return m_open.size(); }

    /// All attributes of @p element, in the order of the text.
    std::vector<Attribute> attributesOf(const SmilElement &element) const;

private:
    friend class SmilElement;
    using Index = std::uint32_t; // 0 is the document element: no child and no sibling

    struct Node
    {
        QString tag;
        Index attributesBegin;
        Index attributesEnd;
        Index firstChild = 0;
        Index nextSibling = 0;
    };
    struct OpenElement
    {
        Index index;
        Index lastChild = 0;
    };

    SmilElement elementAt(Index index) const;

    std::vector<Node> m_nodes;
    std::vector<Attribute> m_attributes;
    std::vector<OpenElement> m_open;
};
