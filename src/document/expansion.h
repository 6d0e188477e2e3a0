/*
 * Measures how far entities and default attributes expand a document. Only documents with
 * declarations expand, so only these are measured.
 */
#pragma once

#include <QByteArrayView>

#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Adds up the characters (UTF-16 units) of a document while its parser reports them.
class ExpansionMeter
{
public:
    explicit ExpansionMeter(QByteArrayView document);

    bool isWithinLimit() const { return m_length <= m_limit; }

    /// Text, or a comment, at octet @p at of the document.
    void addText(qint64 at, std::string_view text);

    /// A start tag at octet @p at. @p attributes are names and values in turn up to a null: first
    /// the @p specified ones, then those of default attributes.
    void addStartTag(qint64 at, const char *name, const char **attributes, int specified);

    /// A declared attribute of @p element. The parser compares one that @p hasDefault with those
    /// declared before it, and walks all of them for each start tag and each of its attributes.
    void declareAttribute(const char *element, bool hasDefault);

private:
    bool isReference(qint64 at) const;
    void addReplacement(qint64 at, qint64 length);

    QByteArrayView m_document;
    qint64 m_limit;
    qint64 m_length;
    qint64 m_lastReference = -1;
    std::map<std::string, qint64, std::less<>> m_declaredAttributes; // by element
};

/// Counts how many entities refer to one another in a row. The parser takes stack for each.
class EntityLevels
{
public:
    /// Notes the entity @p name and the entities that its text refers to, after the character @p
    /// mark. False when a row of entities is longer than
    /// QvlDocumentLimits::DeepestEntities, as it is when they form a circle.
    [[nodiscard]] bool declare(char mark, std::string_view name, std::string_view text);

private:
    struct Entity
    {
        int level = 0;
        std::vector<Entity *> users;
    };

    [[nodiscard]] bool raise(Entity *entity, int level);

    std::map<std::string, Entity, std::less<>> m_entities; // by name, including the mark
};
