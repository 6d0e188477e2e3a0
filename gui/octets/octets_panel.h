/*
 * The octets of a message beside a tree that says what they are.
 */
#pragma once

#include "octets/octet_tree_model.h"

#include <QWidget>

#include <memory>

class HexView;
class QTreeView;
struct Message;

class OctetsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit OctetsPanel(QWidget *parent = nullptr);

    /// Shows @p message with its problems; nothing for null. The octets are shared.
    void setMessage(const Message *message, const Check::Findings &findings);
    /// Marks the item that begins at @p offset, or the octet if none does.
    void mark(qsizetype offset);

    const OctetTreeModel &model() const { return m_model; }
    const HexView &octets() const { return *m_octets; }

private:
    void markItem(const QModelIndex &index);
    void choose(int item);

    OctetTreeModel m_model;
    QTreeView *m_tree;
    HexView *m_octets;
    bool m_isFollowing = false; ///< the tree follows the octets
};
