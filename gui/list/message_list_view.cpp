#include "list/message_list_view.h"

#include "edit/opened_files.h"
#include "view/terminal_text.h"

#include <QAction>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>

namespace {

constexpr int TurnMilliseconds = 10; // of adding messages, until the event loop runs again
constexpr std::size_t BatchSize = 100;
constexpr int MostThumbnails = 500;
constexpr QSize ThumbnailSize(64, 48);

QString cleaned(const QString &name)
{
    return QDir::cleanPath(QFileInfo(name).absoluteFilePath());
}

} // namespace

MessageListView::MessageListView(QWidget *parent)
    : QWidget(parent), m_thumbnails([](const QString &file) {
          return Thumbnails::drawFirstSlide(file, ThumbnailSize);
      }),
      m_words(new QLineEdit(this)), m_table(new QTableView(this)), m_reading(new QWidget(this)),
      m_progress(new QProgressBar(m_reading)), m_empty(new QLabel(this))
{
    makeFilterLine();
    makeTable();
    makeSortCommands();
    makeProgress();
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_empty->setTextFormat(Qt::PlainText);
    m_empty->hide();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_words);
    layout->addWidget(m_empty, 1);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_reading);
    m_turn.setSingleShot(true);
    connect(&m_turn, &QTimer::timeout, this, &MessageListView::takeResults);
    m_visible.setSingleShot(true);
    connect(&m_visible, &QTimer::timeout, this, &MessageListView::wantVisibleThumbnails);
    connect(&m_thumbnails, &Thumbnails::ready, this, &MessageListView::keep);
    connect(&m_watch, &FolderWatch::watching, this, &MessageListView::beginReading);
    connect(&m_watch, &FolderWatch::changed, this, &MessageListView::reload);
}

MessageListView::~MessageListView()
{
    endReading();
}

void MessageListView::makeFilterLine()
{
    m_words->setPlaceholderText(tr("Filter by address, subject or text (Ctrl+F)"));
    m_words->setAccessibleName(tr("Filter"));
    m_words->setClearButtonEnabled(true);
    m_words->installEventFilter(this);
    connect(m_words, &QLineEdit::textChanged, this, &MessageListView::filter);
    auto *find = new QAction(tr("&Filter"), this);
    find->setShortcut(QKeySequence::Find);
    connect(find, &QAction::triggered, this, [this] {
        m_words->setFocus();
        m_words->selectAll();
    });
    addAction(find);
}

void MessageListView::makeTable()
{
    m_filter.setSourceModel(&m_model);
    m_table->setModel(&m_filter);
    m_table->setAccessibleName(tr("Messages"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setShowGrid(false);
    m_table->setAlternatingRowColors(true);
    m_table->setWordWrap(false);
    m_table->setIconSize(ThumbnailSize);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(ThumbnailSize.height() + 4);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setSortIndicatorClearable(true);
    m_table->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    m_table->setSortingEnabled(true);
    for (const auto &[column, width] :
         {std::pair(MessageListModel::Slide, ThumbnailSize.width() + 8),
          {MessageListModel::Address, 115},
          {MessageListModel::Subject, 115},
          {MessageListModel::Date, 110},
          {MessageListModel::Size, 65},
          {MessageListModel::Media, 100}})
        m_table->setColumnWidth(column, width);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->installEventFilter(this);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &index) {
                if (index.isValid() && !m_isFiltering)
                    emit current(fileOf(index));
            });
    connect(m_table, &QTableView::doubleClicked, this,
            [this](const QModelIndex &index) { emit opened(fileOf(index)); });
    connect(m_table->verticalScrollBar(), &QScrollBar::valueChanged, &m_visible,
            qOverload<>(&QTimer::start));
    connect(&m_filter, &QAbstractItemModel::layoutChanged, &m_visible, qOverload<>(&QTimer::start));
}

void MessageListView::makeProgress()
{
    m_progress->setAccessibleName(tr("Progress of reading"));
    m_progress->setMaximum(1000);
    auto *stop = new QToolButton(m_reading);
    stop->setText(tr("Stop"));
    stop->setAccessibleName(tr("Stop reading"));
    stop->setFocusPolicy(Qt::StrongFocus);
    connect(stop, &QToolButton::clicked, this, &MessageListView::stop);
    auto *layout = new QHBoxLayout(m_reading);
    layout->setContentsMargins({});
    layout->addWidget(m_progress, 1);
    layout->addWidget(stop);
    m_reading->hide();
}

void MessageListView::makeSortCommands()
{
    for (int column = MessageListModel::Address; column < MessageListModel::Columns; ++column) {
        auto *command = new QAction(
            m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(), this);
        connect(command, &QAction::triggered, this, [this, column] { sortBy(column); });
        m_sortCommands += command;
    }
}

QByteArray MessageListView::columns() const
{
    return m_table->horizontalHeader()->saveState();
}

void MessageListView::setColumns(const QByteArray &columns)
{
    QHeaderView *header = m_table->horizontalHeader();
    if (header->restoreState(columns))
        m_table->sortByColumn(header->sortIndicatorSection(), header->sortIndicatorOrder());
}

void MessageListView::sortBy(int column)
{
    const QHeaderView *header = m_table->horizontalHeader();
    const bool isAscending = header->sortIndicatorSection() == column
        && header->sortIndicatorOrder() == Qt::AscendingOrder;
    m_table->sortByColumn(column, isAscending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

// The shown message stays, also when its row is filtered out.
void MessageListView::filter(const QString &words)
{
    m_isFiltering = true;
    m_filter.setWords(words);
    m_isFiltering = false;
    updateState();
    m_visible.start();
}

bool MessageListView::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Resize && object == m_table)
        m_visible.start();
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent *>(event)->key();
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (object == m_table && isReturn && m_table->currentIndex().isValid()) {
        emit opened(fileOf(m_table->currentIndex()));
        return true;
    }
    if (object == m_words && key == Qt::Key_Escape) {
        m_words->clear();
        m_table->setFocus();
        return true;
    }
    if (object == m_words && (key == Qt::Key_Down || isReturn)) {
        m_table->setFocus();
        m_table->setCurrentIndex({});
        m_table->setCurrentIndex(m_filter.index(0, 0));
        return true;
    }
    return false;
}

void MessageListView::open(const QStringList &names)
{
    endReading();
    m_thumbnails.want({});
    m_kept.clear();
    m_model.clear();
    m_removed.clear();
    m_names.clear();
    for (const QString &name : names)
        m_names += cleaned(name);
    m_watch.watch(m_names);
    if (!names.isEmpty())
        m_table->setFocus();
    m_progress->setValue(0);
    m_reading->setVisible(!names.isEmpty());
    m_isFirstReading = true;
    updateState();
}

void MessageListView::stop()
{
    m_watch.watch({});
    m_names.clear();
    if (m_loader)
        m_loader->cancel();
    takeResults();
    m_reading->hide();
    updateState();
}

// What is added while the folders are read is not lost, because they are watched by now.
void MessageListView::beginReading()
{
    if (m_names.isEmpty())
        return;
    m_loader = std::make_unique<FolderLoader>(std::exchange(m_names, {}), [this] {
        QMetaObject::invokeMethod(&m_turn, qOverload<>(&QTimer::start), Qt::QueuedConnection);
    });
}

// A thread waits for the loader's threads, because each ends only after its message.
void MessageListView::endReading()
{
    std::erase_if(m_ending, [](const std::future<void> &end) {
        return end.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    });
    if (!m_loader)
        return;
    m_loader->cancel();
    m_ending.push_back(std::async(std::launch::async,
                                  [loader = std::move(m_loader)]() mutable { loader.reset(); }));
}

void MessageListView::takeResults()
{
    if (!m_loader)
        return;
    QElapsedTimer spent;
    spent.start();
    do {
        std::vector<LoadedMessage> messages = m_loader->take(BatchSize);
        if (messages.empty())
            break;
        add(std::move(messages));
    } while (spent.elapsed() < TurnMilliseconds);
    m_progress->setValue(int(m_loader->fraction() * m_progress->maximum()));
    m_visible.start();
    chooseFirst();
    if (m_loader->isDone())
        finishLoading();
    else if (spent.elapsed() >= TurnMilliseconds)
        m_turn.start(); // there may be more
}

void MessageListView::add(std::vector<LoadedMessage> messages)
{
    std::erase_if(messages, [this](const LoadedMessage &message) {
        return m_removed.contains(message.entry.file);
    });
    for (const LoadedMessage &message : messages)
        OpenedFiles::add(message.entry.file);
    m_model.add(std::move(messages));
}

void MessageListView::finishLoading()
{
    m_reading->hide();
    updateState();
    if (std::exchange(m_isFirstReading, false) && m_loader->skipped() > 0)
        emit reported(tr("%n other file(s) skipped", nullptr, int(m_loader->skipped())));
}

// Tells why the table has no rows.
void MessageListView::updateState()
{
    const bool isEmpty = m_filter.rowCount() == 0 && !isBusy();
    m_empty->setVisible(isEmpty);
    m_table->setVisible(!isEmpty);
    m_empty->setText(m_model.rowCount() > 0 ? tr("No message contains these words.")
                                            : tr("There are no messages here."));
}

void MessageListView::chooseFirst()
{
    if (!m_table->currentIndex().isValid() && m_filter.rowCount() > 0 && m_words->text().isEmpty())
        m_table->setCurrentIndex(m_filter.index(0, 0));
}

void MessageListView::reload(const QStringList &messages, const QStringList &others,
                             const QStringList &removed)
{
    QStringList changed = messages;
    std::ranges::copy_if(others, std::back_inserter(changed),
                         [this](const QString &file) { return m_model.rowOf(file) >= 0; });
    const QString shown = fileOf(m_table->currentIndex());
    m_model.remove(removed);
    m_removed.unite({removed.begin(), removed.end()});
    m_removed.subtract({changed.begin(), changed.end()});
    if (!changed.isEmpty())
        m_loader->reload(changed);
    if (!m_table->currentIndex().isValid()) // many rows are removed at once
        choose(shown);
    if (changed.contains(shown))
        emit current(shown);
    updateState();
    if (m_model.rowCount() == 0)
        emit emptied();
}

void MessageListView::choose(const QString &file)
{
    if (const int row = m_model.rowOf(file); row >= 0)
        m_table->setCurrentIndex(m_filter.mapFromSource(m_model.index(row, 0)));
}

QString MessageListView::fileOf(const QModelIndex &index) const
{
    return index.data(MessageListModel::FileRole).toString();
}

void MessageListView::wantVisibleThumbnails()
{
    const int top = m_table->rowAt(0);
    if (top < 0)
        return m_thumbnails.want({});
    const int below = m_table->rowAt(m_table->viewport()->height() - 1);
    const int bottom = below < 0 ? m_filter.rowCount() - 1 : below;
    QStringList wanted;
    for (int row = top; row <= bottom; ++row) {
        const int source = m_filter.mapToSource(m_filter.index(row, 0)).row();
        if (m_model.hasSlides(source) && !m_model.hasThumbnail(source))
            wanted += m_model.file(source);
    }
    m_thumbnails.want(wanted);
}

void MessageListView::keep(const QString &file, const QImage &image)
{
    m_model.setThumbnail(file, image);
    m_kept.removeOne(file);
    m_kept += file;
    if (m_kept.size() > MostThumbnails) // many more than are visible
        m_model.dropThumbnail(m_kept.takeFirst());
}
