#include "list/message_list_model.h"

#include "common/plain_tool_tip.h"
#include "view/terminal_text.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QSet>

#include <algorithm>
#include <array>

using MessageList::Entry;
using MessageList::PartKind;
using TerminalText::visible;

namespace {

constexpr qsizetype MostSearched = 4000; // characters of a message
constexpr qsizetype MostSingleRemovals = 50; // each moves the rows below

QString addressOf(const Entry &entry)
{
    if (!entry.from.isEmpty())
        return entry.from;
    if (entry.to.isEmpty() && entry.subject.isEmpty())
        return QFileInfo(entry.file).fileName();
    const QString first = entry.to.value(0);
    return entry.to.size() > 1
        ? MessageListModel::tr("%1 and %n more", nullptr, int(entry.to.size() - 1)).arg(first)
        : first;
}

QString mediaText(const Entry &entry)
{
    QStringList words;
    const std::array counts{
        std::pair(PartKind::Image,
                  MessageListModel::tr("%n picture(s)", nullptr, entry.count(PartKind::Image))),
        std::pair(PartKind::Audio, MessageListModel::tr("audio")),
        std::pair(PartKind::Video, MessageListModel::tr("video")),
        std::pair(PartKind::Text, MessageListModel::tr("text")),
    };
    for (const auto &[kind, word] : counts) {
        if (entry.count(kind) > 0)
            words += word;
    }
    return words.join(QLatin1StringView(", "));
}

QString stateText(const Entry &entry)
{
    if (!entry.error.isEmpty())
        return MessageListModel::tr("not read");
    switch (entry.state) {
    case MessageState::Ok:
        return MessageListModel::tr("ok");
    case MessageState::Changed:
        return MessageListModel::tr("changed");
    case MessageState::Refused:
        return MessageListModel::tr("refused");
    }
    return {};
}

QString dateText(const Entry &entry)
{
    return entry.date
        ? QLocale().toString(QDateTime::fromSecsSinceEpoch(*entry.date), QLocale::ShortFormat)
        : QString();
}

QVariant unlessEmpty(const QString &text)
{
    return text.isEmpty() ? QVariant() : QVariant(text);
}

QString searchedTextOf(const LoadedMessage &message)
{
    const Entry &entry = message.entry;
    const QStringList texts{entry.from, entry.to.join(QLatin1Char('\n')), entry.subject,
                            QFileInfo(entry.file).fileName(), message.texts};
    return texts.join(QLatin1Char('\n')).left(MostSearched).toCaseFolded();
}

bool hasSameHeader(const Entry &a, const Entry &b)
{
    return a.from == b.from && a.to == b.to && a.subject == b.subject && a.date == b.date
        && a.octets == b.octets && a.error == b.error;
}

} // namespace

MessageListModel::MessageListModel(QObject *parent) : QAbstractTableModel(parent) { }

int MessageListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_messages.size());
}

int MessageListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(Columns);
}

QVariant MessageListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const std::array titles{tr("Slide"), tr("From or to"), tr("Subject"), tr("Date"),
                            tr("Size"),  tr("Media"),      tr("State")};
    return section >= 0 && section < Columns ? titles[std::size_t(section)] : QVariant();
}

QVariant MessageListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return {};
    const Row &row = m_messages[std::size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::DecorationRole:
        return index.column() == Slide && !row.thumbnail.isNull() ? row.thumbnail : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == Size ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::ToolTipRole:
        return toolTip(row, index.column());
    case SortRole:
        return sortValue(row, index.column());
    case TextsRole:
        return row.searched;
    case FileRole:
        return row.message.entry.file;
    default:
        return {};
    }
}

QVariant MessageListModel::text(const Row &row, int column) const
{
    const Entry &entry = row.message.entry;
    switch (column) {
    case Address:
        return visible(addressOf(entry));
    case Subject:
        return visible(entry.subject);
    case Date:
        return dateText(entry);
    case Size:
        return entry.error.isEmpty() ? QLocale().formattedDataSize(entry.octets) : QString();
    case Media:
        return row.media;
    case State:
        return row.message.isWhole ? stateText(entry) : QString();
    default:
        return {};
    }
}

QVariant MessageListModel::sortValue(const Row &row, int column) const
{
    const Entry &entry = row.message.entry;
    switch (column) {
    case Address:
        return unlessEmpty(row.sortedAddress);
    case Subject:
        return unlessEmpty(row.sortedSubject);
    case Date:
        return entry.date ? QVariant(*entry.date) : QVariant();
    case Size:
        return entry.error.isEmpty() ? QVariant(entry.octets) : QVariant();
    case Media:
        return unlessEmpty(row.media);
    case State:
        return row.message.isWhole ? QVariant(int(entry.state)) : QVariant();
    default:
        return entry.file;
    }
}

QVariant MessageListModel::toolTip(const Row &row, int column) const
{
    const Entry &entry = row.message.entry;
    const QString tip = !entry.error.isEmpty() ? entry.error
        : column == Slide                      ? entry.file
                                               : text(row, column).toString();
    return plainToolTip(tip);
}

MessageListModel::Row MessageListModel::rowFrom(LoadedMessage message)
{
    Row row;
    row.searched = searchedTextOf(message);
    row.sortedAddress = addressOf(message.entry).toCaseFolded();
    row.sortedSubject = message.entry.subject.toCaseFolded();
    row.media = mediaText(message.entry);
    message.texts.clear(); // they are in what is searched
    row.message = std::move(message);
    return row;
}

void MessageListModel::add(std::vector<LoadedMessage> messages)
{
    std::vector<Row> added;
    QHash<QString, std::size_t> addedByFile;
    for (LoadedMessage &message : messages) {
        const QString file = message.entry.file;
        const int known = rowOf(file);
        Row row = rowFrom(std::move(message));
        if (known >= 0) {
            replace(known, std::move(row));
        } else if (addedByFile.contains(file)) {
            added[addedByFile.value(file)] = std::move(row);
        } else {
            addedByFile.insert(file, added.size());
            added.push_back(std::move(row));
        }
    }
    append(std::move(added));
}

void MessageListModel::replace(int number, Row row)
{
    Row &replaced = m_messages[std::size_t(number)];
    // Usually a whole message replaces its own header. Other columns would be sorted again.
    const bool isSameHeader = hasSameHeader(replaced.message.entry, row.message.entry);
    replaced = std::move(row);
    emit dataChanged(index(number, isSameHeader ? int(Media) : 0), index(number, Columns - 1));
}

void MessageListModel::append(std::vector<Row> rows)
{
    if (rows.empty())
        return;
    const int first = rowCount();
    beginInsertRows({}, first, first + int(rows.size()) - 1);
    std::ranges::move(rows, std::back_inserter(m_messages));
    renumber(first);
    endInsertRows();
}

void MessageListModel::renumber(int from)
{
    for (int row = from; row < rowCount(); ++row)
        m_rows.insert(file(row), row);
}

void MessageListModel::remove(const QStringList &files)
{
    if (files.size() > MostSingleRemovals)
        return removeAtOnce(files);
    for (const QString &file : files) {
        const int row = rowOf(file);
        if (row < 0)
            continue;
        beginRemoveRows({}, row, row);
        m_messages.erase(m_messages.begin() + row);
        m_rows.remove(file);
        renumber(row);
        endRemoveRows();
    }
}

void MessageListModel::removeAtOnce(const QStringList &files)
{
    const QSet<QString> removed(files.begin(), files.end());
    beginResetModel();
    std::erase_if(m_messages,
                  [&removed](const Row &row) { return removed.contains(row.message.entry.file); });
    m_rows.clear();
    renumber(0);
    endResetModel();
}

void MessageListModel::clear()
{
    beginResetModel();
    m_messages.clear();
    m_rows.clear();
    endResetModel();
}

void MessageListModel::setThumbnail(const QString &file, const QImage &image)
{
    const int number = rowOf(file);
    if (number < 0)
        return;
    Row &row = m_messages[std::size_t(number)];
    row.thumbnail = image;
    row.hasThumbnail = true;
    const QModelIndex changed = index(number, Slide);
    emit dataChanged(changed, changed, {Qt::DecorationRole});
}

void MessageListModel::dropThumbnail(const QString &file)
{
    const int number = rowOf(file);
    if (number < 0)
        return;
    Row &row = m_messages[std::size_t(number)];
    row.thumbnail = {};
    row.hasThumbnail = false;
}

bool MessageListModel::hasSlides(int row) const
{
    const LoadedMessage &message = m_messages[std::size_t(row)].message;
    return message.isWhole && message.entry.slides > 0;
}
