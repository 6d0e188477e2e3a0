/*
 * What the octets of a message are: header fields, parts, their headers and data, problems. Each
 * item has its range of octets, also in a message that is refused.
 */
#pragma once

#include <QString>

#include <vector>

struct Message;
struct QvlScannedPart;
namespace Check {
class Findings;
}

/// A range of octets and what it is.
struct OctetItem
{
    QString name = {};
    QString value = {}; ///< for people; may be empty
    qsizetype offset = 0; ///< from the begin of the file
    qsizetype length = 0;
    int parent = -1; ///< index of the item that this one belongs to; -1 at the top
    int row = 0; ///< among the children of the parent
    bool isProblem = false;
    std::vector<int> children = {};
};

class OctetTree
{
public:
    /// Most items of one kind in one place. Hostile messages have millions; the last item is the
    /// rest.
    static constexpr int MostItems = 5000;

    OctetTree() = default;
    /// The items of @p message and its problems.
    OctetTree(const Message &message, const Check::Findings &findings);

    const std::vector<OctetItem> &items() const { return m_items; }
    const OctetItem &item(int index) const { return m_items[std::size_t(index)]; }
    const std::vector<int> &roots() const { return m_roots; }
    /// The smallest item at @p octet that is no problem; -1 if there is none.
    int innermost(qsizetype octet) const;

private:
    int add(OctetItem item);
    void addHeader(const Message &message);
    void addBody(const Message &message, qsizetype offset);
    void addParts(const Message &message, qsizetype offset, int body);
    void addPart(const QvlScannedPart &part, qsizetype offset, int body);
    void addProblems(const Check::Findings &findings);

    std::vector<OctetItem> m_items;
    std::vector<int> m_roots;
};
