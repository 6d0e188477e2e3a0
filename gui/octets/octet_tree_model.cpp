#include "octets/octet_tree_model.h"

#include "common/plain_tool_tip.h"

void OctetTreeModel::setTree(OctetTree tree)
{
    beginResetModel();
    m_tree = std::move(tree);
    endResetModel();
}

const std::vector<int> &OctetTreeModel::childrenOf(const QModelIndex &parent) const
{
    return parent.isValid() ? itemAt(parent).children : m_tree.roots();
}

QModelIndex OctetTreeModel::indexOf(int item) const
{
    return item < 0 ? QModelIndex() : createIndex(m_tree.item(item).row, 0, quintptr(item));
}

QModelIndex OctetTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, quintptr(childrenOf(parent)[std::size_t(row)]));
}

QModelIndex OctetTreeModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(itemAt(index).parent) : QModelIndex();
}

int OctetTreeModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : int(childrenOf(parent).size());
}

int OctetTreeModel::columnCount(const QModelIndex &) const
{
    return Columns;
}

QVariant OctetTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const OctetItem &item = itemAt(index);
    const QString text = index.column() == Name ? item.name
        : index.column() == Value               ? item.value
                                                : tr("%1, %2").arg(item.offset).arg(item.length);
    return role == Qt::ToolTipRole ? plainToolTip(text) : text;
}

QVariant OctetTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == Name ? tr("Item") : section == Value ? tr("Value") : tr("Octet, length");
}
