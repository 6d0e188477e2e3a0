/*
 * The list of messages: reads folders in the background, filters, sorts, and shows first slides.
 */
#pragma once

#include "list/folder_watch.h"
#include "list/message_filter.h"
#include "list/message_list_model.h"
#include "list/thumbnails.h"
#include "loader/folder_loader.h"

#include <QSet>
#include <QTimer>
#include <QWidget>

#include <future>
#include <memory>
#include <vector>

class QAction;
class QLabel;
class QLineEdit;
class QProgressBar;
class QTableView;

class MessageListView : public QWidget
{
    Q_OBJECT

public:
    explicit MessageListView(QWidget *parent = nullptr);
    ~MessageListView() override;

    /// Lists the files and the messages in the folders @p names instead of what was listed.
    void open(const QStringList &names);
    /// Lists nothing any more.
    void clear() { open({}); }
    /// Reads no more, and follows no changes. What was read stays.
    void stop();

    /// Widths and order of the columns.
    QByteArray columns() const;
    void setColumns(const QByteArray &columns);

    /// Whether every message is listed with sender, subject, date and size.
    bool isListed() const { return m_loader && m_loader->isListed(); }
    /// Whether messages are still being read.
    bool isBusy() const { return m_loader ? !m_loader->isDone() : !m_names.isEmpty(); }

    /// A command for each column. The second time, it reverses the order.
    const QList<QAction *> &sortCommands() const { return m_sortCommands; }

    const MessageListModel &model() const { return m_model; }
    const Thumbnails &thumbnails() const { return m_thumbnails; }

signals:
    /// The user chose the message in @p file.
    void current(const QString &file);
    /// The user wants the message in @p file in a window of its own.
    void opened(const QString &file);
    /// A line for the status bar.
    void reported(const QString &line);
    /// The last message was removed.
    void emptied();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void makeTable();
    void makeFilterLine();
    void filter(const QString &words);
    void makeSortCommands();
    void makeProgress();
    void sortBy(int column);
    void beginReading();
    void endReading();
    void takeResults();
    void add(std::vector<LoadedMessage> messages);
    void finishLoading();
    void updateState();
    void reload(const QStringList &messages, const QStringList &others, const QStringList &removed);
    void chooseFirst();
    void choose(const QString &file);
    QString fileOf(const QModelIndex &index) const;
    void wantVisibleThumbnails();
    void keep(const QString &file, const QImage &image);

    MessageListModel m_model;
    MessageFilter m_filter;
    Thumbnails m_thumbnails;
    FolderWatch m_watch;
    QLineEdit *m_words;
    QTableView *m_table;
    QWidget *m_reading; ///< progress, and a button to stop
    QProgressBar *m_progress;
    QLabel *m_empty;
    QList<QAction *> m_sortCommands;
    QTimer m_turn; ///< takes results
    QTimer m_visible; ///< looks for visible rows
    bool m_isFiltering = false;
    bool m_isFirstReading = false; ///< of the folders, not of files that changed
    QSet<QString> m_removed; ///< files whose results may still arrive
    QStringList m_names; ///< to read as soon as they are watched
    QStringList m_kept; ///< files with thumbnails, the oldest first
    std::vector<std::future<void>> m_ending; ///< of loaders that end; waits when it is destroyed
    std::unique_ptr<FolderLoader> m_loader; ///< last, because it calls the rest
};
