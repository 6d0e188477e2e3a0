/*
 * The messages of a list as rows of a table.
 */
#pragma once

#include "loader/loaded_message.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QImage>
#include <QStringList>

#include <vector>

class MessageListModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column : unsigned char { Slide, Address, Subject, Date, Size, Media, State, Columns };

    enum Role : int {
        SortRole = Qt::UserRole, ///< invalid for what has no value
        TextsRole, ///< what the filter searches, in lower case
        FileRole,
    };

    explicit MessageListModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Adds messages, or replaces those of the same files.
    void add(std::vector<LoadedMessage> messages);
    void remove(const QStringList &files);
    void clear();

    /// The row of the file; -1 if it is not listed.
    int rowOf(const QString &file) const { return m_rows.value(file, -1); }
    QString file(int row) const { return m_messages[std::size_t(row)].message.entry.file; }
    /// Sets the picture of the first slide; a null one for a message that has none.
    void setThumbnail(const QString &file, const QImage &image);
    bool hasThumbnail(int row) const { return m_messages[std::size_t(row)].hasThumbnail; }
    /// Forgets the picture, so that memory stays bounded.
    void dropThumbnail(const QString &file);
    /// Whether the whole message was read and has slides.
    bool hasSlides(int row) const;

private:
    struct Row
    {
        LoadedMessage message;
        QString searched; ///< what the filter searches
        QString sortedAddress; ///< in lower case
        QString sortedSubject; ///< in lower case
        QString media; ///< the text of the column
        QImage thumbnail;
        bool hasThumbnail = false; ///< was made, even if it is null
    };

    static Row rowFrom(LoadedMessage message);
    void replace(int number, Row row);
    void append(std::vector<Row> rows);
    void removeAtOnce(const QStringList &files);
    void renumber(int from);
    QVariant text(const Row &row, int column) const;
    QVariant sortValue(const Row &row, int column) const;
    QVariant toolTip(const Row &row, int column) const;

    std::vector<Row> m_messages;
    QHash<QString, int> m_rows; ///< by file
};
