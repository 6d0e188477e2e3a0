/*
 * The items of a message as a tree with names and values.
 */
#pragma once

#include "octets/octet_tree.h"

#include <QAbstractItemModel>

class OctetTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column : unsigned char { Name, Value, Place, Columns };

    explicit OctetTreeModel(QObject *parent = nullptr) : QAbstractItemModel(parent) { }

    void setTree(OctetTree tree);
    const OctetTree &tree() const { return m_tree; }

    /// The item of @p index, which is valid.
    const OctetItem &itemAt(const QModelIndex &index) const
    {
        return m_tree.item(int(index.internalId()));
    }
    /// The index of the item with the number @p item; invalid for -1.
    QModelIndex indexOf(int item) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const std::vector<int> &childrenOf(const QModelIndex &parent) const;

    OctetTree m_tree;
};
