/*
 * The list of messages: model, filter and order.
 */
#include "list/message_filter.h"
#include "list/message_list_model.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

class ListModelTest : public QObject
{
    Q_OBJECT

private slots:
    void rowHasTheTextsOfItsMessage();
    void wholeMessageReplacesItsHeader();
    void stateOfAHeaderIsNotKnown();
    void controlCharactersAreVisible();
    void removedFilesLoseTheirRows();
    void manyRemovedFilesLoseTheirRows();
    void filterFindsEveryWordInAnyField();
    void columnsSortByValue();
    void whatHasNoValueComesLastInBothOrders();
};

namespace {

constexpr int Address = MessageListModel::Address;

LoadedMessage loaded(const QString &file, const QString &from = {}, const QString &subject = {},
                     std::optional<qint64> date = {})
{
    LoadedMessage message;
    message.entry.file = file;
    message.entry.from = from;
    message.entry.subject = subject;
    message.entry.date = date;
    message.entry.octets = 100;
    return message;
}

QString cell(const QAbstractItemModel &model, int row, int column)
{
    return model.index(row, column).data().toString();
}

QStringList column(const QAbstractItemModel &model, int column)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts += cell(model, row, column);
    return texts;
}

/// A list of three messages, two of which have a subject.
std::vector<LoadedMessage> three()
{
    std::vector<LoadedMessage> messages;
    messages.push_back(loaded("/c", "+493", "beta", 30));
    messages.push_back(loaded("/a", "+491", "Alpha", 100));
    messages.push_back(loaded("/b", "+492"));
    return messages;
}

} // namespace

void ListModelTest::rowHasTheTextsOfItsMessage()
{
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    LoadedMessage message = loaded("/folder/a.mms", {}, "Hello");
    message.isWhole = true;
    message.entry.to = {"+491", "+492", "+493"};
    message.entry.parts[std::size_t(MessageList::PartKind::Audio)] = 1;
    message.entry.state = MessageState::Changed;
    model.add({message});
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(cell(model, 0, Address), QStringLiteral("+491 and 2 more"));
    QCOMPARE(cell(model, 0, MessageListModel::Subject), QStringLiteral("Hello"));
    QCOMPARE(cell(model, 0, MessageListModel::Date), QString());
    QCOMPARE(cell(model, 0, MessageListModel::Media), QStringLiteral("audio"));
    QCOMPARE(cell(model, 0, MessageListModel::State), QStringLiteral("changed"));
}

void ListModelTest::wholeMessageReplacesItsHeader()
{
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    model.add(three());
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    LoadedMessage whole = loaded("/a", "+491", "Alpha", 100);
    whole.isWhole = true;
    whole.entry.state = MessageState::Refused;
    model.add({whole});
    QCOMPARE(model.rowCount(), 3);
    QCOMPARE(cell(model, 1, MessageListModel::State), QStringLiteral("refused"));
    QCOMPARE(changed.count(), 1);
    // The columns of the header are not sorted again.
    QCOMPARE(changed[0][0].toModelIndex().column(), int(MessageListModel::Media));
}

void ListModelTest::stateOfAHeaderIsNotKnown()
{
    MessageListModel model;
    model.add(three());
    QCOMPARE(cell(model, 0, MessageListModel::State), QString());
    QVERIFY(!model.hasSlides(0));
}

void ListModelTest::controlCharactersAreVisible()
{
    MessageListModel model;
    model.add({loaded("/a", "+491", QStringLiteral("a\x1b[2J\u202Eb"))});
    const QString shown = cell(model, 0, MessageListModel::Subject);
    QVERIFY(!shown.contains(QChar(0x1b)));
    QVERIFY(!shown.contains(QChar(0x202E)));
    QVERIFY(!model.index(0, MessageListModel::Subject)
                 .data(Qt::ToolTipRole)
                 .toString()
                 .contains(QChar(0x1b)));
}

void ListModelTest::removedFilesLoseTheirRows()
{
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    model.add(three());
    model.remove({"/a", "/unknown"});
    QCOMPARE(column(model, Address), QStringList({"+493", "+492"}));
    QCOMPARE(model.rowOf("/b"), 1);
    QCOMPARE(model.rowOf("/a"), -1);
}

void ListModelTest::manyRemovedFilesLoseTheirRows()
{
    MessageListModel model;
    const QAbstractItemModelTester tester(&model);
    std::vector<LoadedMessage> messages;
    QStringList removed;
    for (int i = 0; i < 100; ++i) {
        messages.push_back(loaded(QString::number(i)));
        if (i != 42)
            removed += QString::number(i);
    }
    model.add(std::move(messages));
    model.remove(removed);
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.rowOf("42"), 0);
}

void ListModelTest::filterFindsEveryWordInAnyField()
{
    MessageListModel model;
    std::vector<LoadedMessage> messages = three();
    messages[2].texts = QStringLiteral("Grüße vom Hafen");
    model.add(std::move(messages));
    MessageFilter filter;
    filter.setSourceModel(&model);
    const auto rowsFor = [&filter](const QString &words) {
        filter.setWords(words);
        return filter.rowCount();
    };
    QCOMPARE(rowsFor("+49"), 3);
    QCOMPARE(rowsFor("ALPHA"), 1);
    QCOMPARE(rowsFor("GRÜßE"), 1);
    QCOMPARE(rowsFor("hafen +492"), 1);
    QCOMPARE(rowsFor("hafen +491"), 0);
    QCOMPARE(rowsFor("  "), 3);
}

void ListModelTest::columnsSortByValue()
{
    MessageListModel model;
    model.add(three());
    MessageFilter filter;
    filter.setSourceModel(&model);
    filter.sort(MessageListModel::Date, Qt::AscendingOrder); // 30 before 100
    QCOMPARE(column(filter, Address).first(2), QStringList({"+493", "+491"}));
    filter.sort(MessageListModel::Subject, Qt::AscendingOrder); // ignoring case
    QCOMPARE(column(filter, MessageListModel::Subject).first(2), QStringList({"Alpha", "beta"}));
    filter.sort(-1);
    QCOMPARE(column(filter, Address), QStringList({"+493", "+491", "+492"}));
}

void ListModelTest::whatHasNoValueComesLastInBothOrders()
{
    MessageListModel model;
    model.add(three());
    MessageFilter filter;
    filter.setSourceModel(&model);
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        filter.sort(MessageListModel::Date, order);
        QCOMPARE(cell(filter, 2, Address), QStringLiteral("+492"));
        filter.sort(MessageListModel::Subject, order);
        QCOMPARE(cell(filter, 2, Address), QStringLiteral("+492"));
    }
}

QTEST_GUILESS_MAIN(ListModelTest)
#include "list_model_test.moc"
