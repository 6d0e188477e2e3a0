/*
 * What the reader of SMIL needs of a document: elements with their attributes and children, in the
 * order of the text. Text, comments and instructions are not kept. A document is filled in one
 * pass, by the parser or from a tree of Qt's.
 */
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

class QDomElement;
class SmilDocument;

/// An element, or none. Refers to its document, which has to outlive it and must not change.
class SmilElement
{
public:
    SmilElement() = default;

    bool isNull() const { return !m_document; }

    /// The name with its prefix, empty for no element.
    QString tag() const;

    /// The value of the attribute @p name, null without such an attribute. Linear in the
    /// attributes.
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
    /// A copy of @p root and the elements in it, with those attributes that the reader of SMIL asks
    /// for.
    explicit SmilDocument(const QDomElement &root);

    /// The document element, none for an empty document.
    SmilElement root() const;

    /// Begins an element in the one that was begun last and not ended.
    void beginElement(const QString &tag);
    /// Adds an attribute to the element that was begun last.
    void addAttribute(const QString &name, const QString &value);
    /// Ends the element that was begun last and not ended.
    void endElement();

    /// Count of the elements that were begun and not ended.
    std::size_t depth() const { return m_open.size(); }

    /// All attributes of @p element, in the order of the text.
    std::vector<Attribute> attributesOf(const SmilElement &element) const;

private:
    friend class SmilElement;
    using Index = std::uint32_t; // 0, which is the document element's, for no child or sibling

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
