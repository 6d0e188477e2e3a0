#include "list/message_filter.h"

#include "list/message_list_model.h"

#include <algorithm>

MessageFilter::MessageFilter(QObject *parent) : QSortFilterProxyModel(parent)
{
    setSortRole(MessageListModel::SortRole);
}

void MessageFilter::setWords(const QString &text)
{
    m_words = text.toCaseFolded().simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    invalidateFilter();
}

bool MessageFilter::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    if (m_words.isEmpty())
        return true;
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    const QString text = index.data(MessageListModel::TextsRole).toString();
    return std::ranges::all_of(m_words,
                               [&text](const QString &word) { return text.contains(word); });
}

bool MessageFilter::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const QVariant a = left.data(MessageListModel::SortRole);
    const QVariant b = right.data(MessageListModel::SortRole);
    if (!a.isValid() || !b.isValid())
        return sortOrder() == Qt::AscendingOrder ? a.isValid() && !b.isValid()
                                                 : !a.isValid() && b.isValid();
    if (a.typeId() == QMetaType::QString)
        return a.toString() < b.toString();
    return a.toLongLong() < b.toLongLong();
}
