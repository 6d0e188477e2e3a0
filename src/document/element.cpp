#include "document/element.h"

#include "document/names.h"

#include <QDomElement>

#include <algorithm>
#include <limits>
#include <new>
#include <span>

namespace {

std::uint32_t indexOfNext(const auto &list)
{
    if (list.size() >= std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    return std::uint32_t(list.size());
}

} // namespace

SmilElement::SmilElement(const SmilDocument *document, std::uint32_t index)
    : m_document(document), m_index(index)
{
}

QString SmilElement::tag() const
{
    return m_document ? m_document->m_nodes[m_index].tag : QString();
}

QString SmilElement::attribute(QStringView name) const
{
    if (!m_document)
        return QString();
    const auto &node = m_document->m_nodes[m_index];
    const auto attributes =
        std::span(m_document->m_attributes)
            .subspan(node.attributesBegin, node.attributesEnd - node.attributesBegin);
    const auto found = std::ranges::find(attributes, name, &SmilDocument::Attribute::name);
    return found != attributes.end() ? found->value : QString();
}

SmilElement SmilElement::firstChild() const
{
    return m_document ? m_document->elementAt(m_document->m_nodes[m_index].firstChild)
                      : SmilElement();
}

SmilElement SmilElement::nextSibling() const
{
    return m_document ? m_document->elementAt(m_document->m_nodes[m_index].nextSibling)
                      : SmilElement();
}

SmilDocument::SmilDocument(const QDomElement &root)
{
    for (QDomElement element = root; !element.isNull();) {
        beginElement(element.tagName());
        for (const SmilName &name : smilNames()) {
            if (name.isAttribute && element.hasAttribute(name.text))
                addAttribute(name.text, element.attribute(name.text));
        }
        QDomElement next = element.firstChildElement();
        while (next.isNull()) {
            endElement();
            if (element == root)
                return;
            next = element.nextSiblingElement();
            if (next.isNull())
                element = element.parentNode().toElement();
        }
        element = next;
    }
}

SmilElement SmilDocument::root() const
{
    return m_nodes.empty() ? SmilElement() : SmilElement(this, 0);
}

void SmilDocument::beginElement(const QString &tag)
{
    const Index index = indexOfNext(m_nodes);
    const Index attributes = indexOfNext(m_attributes);
    m_nodes.push_back({tag, attributes, attributes});
    if (!m_open.empty()) {
        OpenElement &parent = m_open.back();
        if (parent.lastChild)
            m_nodes[parent.lastChild].nextSibling = index;
        else
            m_nodes[parent.index].firstChild = index;
        parent.lastChild = index;
    }
    m_open.push_back({index});
}

void SmilDocument::addAttribute(const QString &name, const QString &value)
{
    m_attributes.push_back({name, value});
    m_nodes.back().attributesEnd = indexOfNext(m_attributes);
}

void SmilDocument::endElement()
{
    m_open.pop_back();
}

std::vector<SmilDocument::Attribute> SmilDocument::attributesOf(const SmilElement &element) const
{
    const Node &node = m_nodes[element.m_index];
    return {m_attributes.begin() + std::ptrdiff_t(node.attributesBegin),
            m_attributes.begin() + std::ptrdiff_t(node.attributesEnd)};
}

SmilElement SmilDocument::elementAt(Index index) const
{
    return index ? SmilElement(this, index) : SmilElement();
}
