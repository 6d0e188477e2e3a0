/*
 * What the octets of a message are, and the panels that show it.
 */
#include "octets/header_panel.h"
#include "octets/hex_view.h"
#include "octets/octet_tree_model.h"
#include "octets/octets_panel.h"
#include "octets/problems_panel.h"
#include "octets/smil_panel.h"

#include "check/check.h"
#include "input/message.h"
#include "message_folder.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>

class OctetsTest : public QObject
{
    Q_OBJECT

private slots:
    void itemsHaveTheOctetsOfTheirFields();
    void partsHaveHeadersAndData();
    void refusedHeaderEndsWithWhatWasNotRead();
    void truncatedBodyEndsWithWhatWasNotRead();
    void octetsAfterThePartsAreNamed();
    void innermostItemIsFound();
    void manyFieldsEndInOneItem();
    void modelIsATree();
    void choosingAnItemMarksItsOctets();
    void choosingAnOctetChoosesItsItem();
    void problemMarksItsOctets();
    void hexViewMovesByKeys();
    void hexViewCopiesWhatIsMarked();
    void hexViewDrawsOnlyVisibleLines();
    void hexViewWithoutOctetsIgnoresKeys();
    void headerPanelCopiesFields();
    void smilPanelShowsLines();
    void problemsPanelSaysWhenThereAreNone();
    void everyFixtureIsShown();
};

namespace {

Check::Findings findingsOf(Message &message)
{
    return Check::checkMessage(message, {});
}

OctetTree treeOf(const QByteArray &pdu)
{
    const std::unique_ptr<Message> message = decodeMessage(pdu);
    return OctetTree(*message, findingsOf(*message));
}

const OctetItem *find(const OctetTree &tree, const QString &name)
{
    for (const OctetItem &item : tree.items()) {
        if (item.name == name)
            return &item;
    }
    return nullptr;
}

#define VERIFY_RANGE(tree, name, wantedOffset, wantedLength) \
    do { \
        const OctetItem *found = find(tree, QStringLiteral(name)); \
        QVERIFY2(found, name); \
        QCOMPARE(found->offset, qsizetype(wantedOffset)); \
        QCOMPARE(found->length, qsizetype(wantedLength)); \
    } while (false)

// The message of MessageFolder with the number 7: 59 octets.
//  0 8C 84   2 8D 90   4 85 04 xxxx   10 89 10 80 "+491/TYPE=PLMN" 00   28 96 "00007" 00
// 35 84 A3   37 01   38 08 0B   40 83   41 8E "a.txt" 00   48 "words 00007"
const QByteArray pdu = MessageFolder::message(7);

} // namespace

void OctetsTest::itemsHaveTheOctetsOfTheirFields()
{
    QCOMPARE(pdu.size(), 59);
    const OctetTree tree = treeOf(pdu);
    VERIFY_RANGE(tree, "Header", 0, 37);
    VERIFY_RANGE(tree, "8C Message-Type (MMS 1.0)", 0, 2);
    VERIFY_RANGE(tree, "8D MMS-Version (MMS 1.0)", 2, 2);
    VERIFY_RANGE(tree, "85 Date (MMS 1.0)", 4, 6);
    VERIFY_RANGE(tree, "89 From (MMS 1.0)", 10, 18);
    VERIFY_RANGE(tree, "96 Subject (MMS 1.0)", 28, 7);
    VERIFY_RANGE(tree, "84 Content-Type (MMS 1.0)", 35, 2);
    QCOMPARE(find(tree, QStringLiteral("96 Subject (MMS 1.0)"))->value, QStringLiteral("00007"));
}

void OctetsTest::partsHaveHeadersAndData()
{
    const OctetTree tree = treeOf(pdu);
    VERIFY_RANGE(tree, "Body", 37, 22);
    VERIFY_RANGE(tree, "Count of parts", 37, 1);
    VERIFY_RANGE(tree, "Part 0", 38, 21);
    VERIFY_RANGE(tree, "Content-Type", 40, 1);
    VERIFY_RANGE(tree, "Content-Location", 41, 7);
    VERIFY_RANGE(tree, "Data", 48, 11);
    QCOMPARE(find(tree, QStringLiteral("Content-Location"))->value, QStringLiteral("a.txt"));
    QCOMPARE(find(tree, QStringLiteral("Part 0"))->value, QStringLiteral("text/plain"));
}

void OctetsTest::refusedHeaderEndsWithWhatWasNotRead()
{
    const OctetTree tree = treeOf(pdu.first(20)); // within From
    VERIFY_RANGE(tree, "85 Date (MMS 1.0)", 4, 6);
    VERIFY_RANGE(tree, "Not read", 10, 10);
    QVERIFY(!find(tree, QStringLiteral("Not read"))->value.isEmpty());
    QVERIFY(!find(tree, QStringLiteral("Body")));
}

void OctetsTest::truncatedBodyEndsWithWhatWasNotRead()
{
    const OctetTree tree = treeOf(pdu.first(50));
    VERIFY_RANGE(tree, "Body", 37, 13);
    VERIFY_RANGE(tree, "Not read", 37, 13);
}

void OctetsTest::octetsAfterThePartsAreNamed()
{
    const OctetTree tree = treeOf(pdu + "more");
    VERIFY_RANGE(tree, "After the parts", 59, 4);
}

void OctetsTest::innermostItemIsFound()
{
    const OctetTree tree = treeOf(pdu);
    const auto nameAt = [&tree](qsizetype octet) {
        const int item = tree.innermost(octet);
        return item < 0 ? QString() : tree.item(item).name;
    };
    QCOMPARE(nameAt(0), QStringLiteral("8C Message-Type (MMS 1.0)"));
    QCOMPARE(nameAt(34), QStringLiteral("96 Subject (MMS 1.0)"));
    QCOMPARE(nameAt(37), QStringLiteral("Count of parts"));
    QCOMPARE(nameAt(38), QStringLiteral("Part 0")); // the lengths
    QCOMPARE(nameAt(58), QStringLiteral("Data"));
    QCOMPARE(nameAt(59), QString());
    QCOMPARE(nameAt(-1), QString());
}

void OctetsTest::manyFieldsEndInOneItem()
{
    const QByteArray header =
        QByteArray::fromHex("8C848D90") + QByteArray::fromHex("8F80").repeated(20'000);
    const OctetTree tree = treeOf(header);
    QVERIFY(tree.items().size() < std::size_t(OctetTree::MostItems) + 50);
    const OctetItem *rest = find(tree, QStringLiteral("more fields"));
    QVERIFY(rest);
    QCOMPARE(rest->offset + rest->length, header.size());
}

void OctetsTest::modelIsATree()
{
    OctetTreeModel model;
    const QAbstractItemModelTester tester(&model);
    model.setTree(treeOf(pdu));
    QCOMPARE(model.rowCount(), 2); // header and body: there is no problem
    QCOMPARE(model.rowCount(model.index(0, 0)), 6);
    QCOMPARE(model.index(0, 0, model.index(1, 0)).parent(), model.index(1, 0));
    model.setTree({});
    QCOMPARE(model.rowCount(), 0);
}

void OctetsTest::choosingAnItemMarksItsOctets()
{
    OctetsPanel panel;
    const std::unique_ptr<Message> message = decodeMessage(pdu);
    panel.setMessage(message.get(), findingsOf(*message));
    auto *tree = panel.findChild<QTreeView *>();
    const OctetTreeModel &model = panel.model();
    tree->setCurrentIndex(model.index(4, 0, model.index(0, 0))); // Subject
    QCOMPARE(panel.octets().markedOffset(), 28);
    QCOMPARE(panel.octets().markedLength(), 7);
}

void OctetsTest::choosingAnOctetChoosesItsItem()
{
    OctetsPanel panel;
    const std::unique_ptr<Message> message = decodeMessage(pdu);
    panel.setMessage(message.get(), findingsOf(*message));
    auto *hex = panel.findChild<HexView *>();
    for (int i = 0; i < 29; ++i)
        QTest::keyClick(hex, Qt::Key_Right);
    QCOMPARE(hex->cursor(), 29);
    const auto *tree = panel.findChild<QTreeView *>();
    QCOMPARE(tree->currentIndex().data().toString(), QStringLiteral("96 Subject (MMS 1.0)"));
    QCOMPARE(panel.octets().markedLength(), 1); // the octets stay as the user chose them
}

void OctetsTest::problemMarksItsOctets()
{
    QByteArray wrong = pdu;
    wrong[3] = char(0xA0); // version 2.0
    const std::unique_ptr<Message> message = decodeMessage(wrong);
    OctetsPanel octets;
    octets.setMessage(message.get(), findingsOf(*message));
    ProblemsPanel problems;
    connect(&problems, &ProblemsPanel::octetChosen, &octets, &OctetsPanel::mark);
    problems.setFindings(findingsOf(*message));
    auto *list = problems.findChild<QListWidget *>();
    list->setCurrentRow(0);
    QCOMPARE(octets.octets().markedOffset(), 2);
    QCOMPARE(octets.octets().markedLength(), 2);
    VERIFY_RANGE(octets.model().tree(), "wrong-version", 2, 2);
}

void OctetsTest::hexViewMovesByKeys()
{
    HexView view;
    view.resize(700, 300);
    view.show();
    view.setOctets(QByteArray(1000, 'x'));
    QSignalSpy chosen(&view, &HexView::chosen);
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(view.cursor(), 16);
    QTest::keyClick(&view, Qt::Key_End);
    QCOMPARE(view.cursor(), 31);
    QTest::keyClick(&view, Qt::Key_Home);
    QCOMPARE(view.cursor(), 16);
    QTest::keyClick(&view, Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(view.markedOffset(), 16);
    QCOMPARE(view.markedLength(), 2);
    QTest::keyClick(&view, Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(view.cursor(), 999);
    QVERIFY(view.verticalScrollBar()->value() > 0);
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.cursor(), 999);
    QTest::keyClick(&view, Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Up);
    QCOMPARE(view.cursor(), 0);
    QVERIFY(chosen.count() > 5);
    QVERIFY(view.accessibleDescription().contains(QStringLiteral("78")));
}

void OctetsTest::hexViewCopiesWhatIsMarked()
{
    HexView view;
    view.setOctets(QByteArray::fromHex("8C84414200"));
    view.mark(1, 3);
    view.copyHex();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("84 41 42"));
    view.copyText();
    QCOMPARE(QGuiApplication::clipboard()->text(), QChar(0xB7) + QStringLiteral("AB"));
    view.mark(4, 100);
    QCOMPARE(view.markedLength(), 1);
    view.mark(-7, 2);
    QCOMPARE(view.markedOffset(), 0);
}

void OctetsTest::hexViewDrawsOnlyVisibleLines()
{
    HexView view;
    view.resize(700, 300);
    view.show();
    view.setOctets(QByteArray(64 << 20, 'x'));
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.mark(50 << 20, 10);
    QTest::qWait(20);
    view.grab();
    QVERIFY(view.drawnLines() > 0);
    QVERIFY2(view.drawnLines() < 500, qPrintable(QString::number(view.drawnLines())));
    QCOMPARE(view.markedOffset(), qsizetype(50 << 20));
}

void OctetsTest::hexViewWithoutOctetsIgnoresKeys()
{
    HexView view;
    view.show();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp})
        QTest::keyClick(&view, key);
    view.mark(5, 5);
    view.copyHex();
    QCOMPARE(view.markedLength(), 0);
}

void OctetsTest::headerPanelCopiesFields()
{
    HeaderPanel panel;
    const std::unique_ptr<Message> message = decodeMessage(pdu);
    panel.setLines(headerLines(*message));
    auto *fields = panel.findChild<QTreeWidget *>();
    QVERIFY(fields->topLevelItemCount() >= 6);
    fields->show();
    const QList<QTreeWidgetItem *> subject =
        fields->findItems(QStringLiteral("Subject"), Qt::MatchExactly);
    QCOMPARE(subject.size(), 1);
    subject[0]->setSelected(true);
    fields->actions().first()->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Subject: 00007"));
    panel.setLines({});
    QCOMPARE(fields->topLevelItemCount(), 0);
}

void OctetsTest::smilPanelShowsLines()
{
    QString error;
    const std::unique_ptr<Message> message =
        readMessage(QStringLiteral(QVL_FIXTURES "/messages/related.mms"), {}, &error);
    QVERIFY2(message, qPrintable(error));
    SmilPanel panel;
    panel.setMessage(message.get());
    auto *text = panel.findChild<QPlainTextEdit *>();
    QVERIFY(text->toPlainText().contains(QStringLiteral("<smil")));
    panel.markLine(1);
    QVERIFY(text->textCursor().hasSelection());
    panel.markLine(100'000);
    panel.markLine(0);
    Message other;
    other.smil = "<smil>\x1b[2J</smil>";
    panel.setMessage(&other);
    QVERIFY(!text->toPlainText().contains(QChar(0x1b)));
}

void OctetsTest::problemsPanelSaysWhenThereAreNone()
{
    ProblemsPanel panel;
    panel.setFindings({});
    const auto *list = panel.findChild<QListWidget *>();
    QCOMPARE(list->count(), 1);
    QVERIFY(list->item(0)->text().contains(QStringLiteral("No problems")));
}

void OctetsTest::everyFixtureIsShown()
{
    OctetsPanel octets;
    HeaderPanel header;
    SmilPanel smil;
    ProblemsPanel problems;
    int count = 0;
    for (const char *folder : {"messages", "show", "versions"}) {
        const QDir files(QStringLiteral(QVL_FIXTURES "/") + QString::fromLatin1(folder));
        for (const QFileInfo &file : files.entryInfoList({"*.mms", "*.octets"}, QDir::Files)) {
            QString error;
            const std::unique_ptr<Message> message = readMessage(file.filePath(), {}, &error);
            QVERIFY2(message, qPrintable(error));
            const Check::Findings findings = findingsOf(*message);
            octets.setMessage(message.get(), findings);
            header.setLines(headerLines(*message));
            smil.setMessage(message.get());
            problems.setFindings(findings);
            for (const OctetItem &item : octets.model().tree().items()) {
                QVERIFY(item.offset >= 0 && item.length >= 0);
                QVERIFY(item.offset + item.length <= message->octets.size());
            }
            ++count;
        }
    }
    QVERIFY(count > 20);
}

QTEST_MAIN(OctetsTest)
#include "octets_test.moc"
