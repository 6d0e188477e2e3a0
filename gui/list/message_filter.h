/*
 * The rows of a list that contain what the user types, in the order of a column.
 */
#pragma once

#include <QSortFilterProxyModel>

class MessageFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit MessageFilter(QObject *parent = nullptr);

    /// Keeps the messages that contain every word of @p text in sender, recipients, subject, file
    /// name or the texts of the slides, ignoring case. "" keeps all.
    void setWords(const QString &text);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    /// What has no value comes last in both orders.
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    QStringList m_words; ///< in lower case
};
