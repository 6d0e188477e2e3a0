/*
 * The panels beside the slides: parts, and what a message without slides is.
 */
#include "window/parts_panel.h"
#include "window/summary_panel.h"

#include "input/message.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QTest>
#include <QTreeWidget>

class PanelsTest : public QObject
{
    Q_OBJECT

private slots:
    void partsAreListed();
    void commandsNeedAPart();
    void copyPutsTheDecodedTextOnTheClipboard();
    void copyPutsOctetsWithTheirTypeOnTheClipboard();
    void namesAreNeverMarkup();
    void notificationIsShownAsOne();
    void refusedMessageIsShownAsFarAsItWasRead();
    void rowsOfTheLastMessageAreGone();
    void manyFieldsAreShownInPart();
};

namespace {

std::shared_ptr<Message> fixture(const QString &name)
{
    QString error;
    std::shared_ptr<Message> message =
        readMessage(QStringLiteral(QVL_FIXTURES "/") + name, {}, &error);
    if (!message)
        qFatal("%s", qPrintable(error));
    return message;
}

QTreeWidget *listOf(const PartsPanel &panel)
{
    return panel.findChild<QTreeWidget *>();
}

int rowOf(const Message &message, const char *type)
{
    for (int i = 0; i < message.parts().getPartCount(); ++i) {
        if (message.parts().getBodypartByIndex(i)->getMimeFormat() == QLatin1StringView(type))
            return i;
    }
    return -1;
}

QStringList textsOf(const QWidget &widget)
{
    QStringList texts;
    for (const QLabel *label : widget.findChildren<QLabel *>())
        texts += label->text();
    return texts;
}

} // namespace

void PanelsTest::partsAreListed()
{
    const auto message = fixture("messages/related.mms");
    PartsPanel panel;
    panel.setMessage(message);
    QCOMPARE(listOf(panel)->topLevelItemCount(), message->parts().getPartCount());
    QCOMPARE(listOf(panel)->topLevelItem(0)->text(1), "application/smil");
    panel.setMessage(nullptr);
    QCOMPARE(listOf(panel)->topLevelItemCount(), 0);
}

void PanelsTest::commandsNeedAPart()
{
    PartsPanel panel;
    for (const QAction *command : panel.commands()) {
        QVERIFY(!command->isEnabled());
        QVERIFY(!command->shortcut().isEmpty());
    }
    panel.setMessage(fixture("messages/related.mms"));
    QCOMPARE(std::ranges::count_if(panel.commands(), &QAction::isEnabled), 1); // all parts
    listOf(panel)->topLevelItem(1)->setSelected(true);
    QVERIFY(std::ranges::all_of(panel.commands(), &QAction::isEnabled));
}

void PanelsTest::copyPutsTheDecodedTextOnTheClipboard()
{
    const auto message = fixture("messages/related.mms");
    const int row = rowOf(*message, "text/plain");
    PartsPanel panel;
    panel.setMessage(message);
    listOf(panel)->topLevelItem(row)->setSelected(true);
    panel.commands()[2]->trigger();
    QCOMPARE(QGuiApplication::clipboard()->text(),
             message->text(*message->parts().getBodypartByIndex(row)));
}

void PanelsTest::copyPutsOctetsWithTheirTypeOnTheClipboard()
{
    const auto message = fixture("messages/related.mms");
    const int row = rowOf(*message, "image/jpeg");
    QVERIFY(row >= 0);
    PartsPanel panel;
    panel.setMessage(message);
    listOf(panel)->topLevelItem(row)->setSelected(true);
    panel.commands()[2]->trigger();
    QCOMPARE(QGuiApplication::clipboard()->mimeData()->data("image/jpeg"),
             message->parts().getBodypartByIndex(row)->getBodyData());
}

void PanelsTest::namesAreNeverMarkup()
{
    const auto message = fixture("messages/related.mms");
    message->parts().getBodypartByIndex(1)->setContentLocation("<b>\u202Ea");
    PartsPanel panel;
    panel.setMessage(message);
    const QTreeWidgetItem *item = listOf(panel)->topLevelItem(1);
    QCOMPARE(item->text(0), "<b>\\u{202e}a");
    QCOMPARE(item->toolTip(0), "<span>&lt;b&gt;\\u{202e}a</span>");
    SummaryPanel summary;
    summary.setMessage(*message, headerLines(*message));
    for (const QLabel *label : summary.findChildren<QLabel *>())
        QCOMPARE(label->textFormat(), Qt::PlainText);
}

void PanelsTest::notificationIsShownAsOne()
{
    SummaryPanel panel;
    const auto message = fixture("messages/notification.mms");
    panel.setMessage(*message, headerLines(*message));
    const QStringList texts = textsOf(panel);
    QVERIFY(texts.contains("Notification"));
    QVERIFY(texts.contains("Expiry"));
    QVERIFY(texts.contains("http://mmsc.example/m/1"));
}

void PanelsTest::refusedMessageIsShownAsFarAsItWasRead()
{
    SummaryPanel panel;
    const auto message = decodeMessage(fixture("messages/related.mms")->octets.chopped(1));
    QVERIFY(message->isRefused());
    panel.setMessage(*message, headerLines(*message));
    QVERIFY(textsOf(panel).contains("Refused"));
    QVERIFY(textsOf(panel).contains("Transaction-Id"));
}

void PanelsTest::rowsOfTheLastMessageAreGone()
{
    SummaryPanel panel;
    const auto message = fixture("messages/notification.mms");
    panel.setMessage(*message, headerLines(*message));
    panel.setError("no such file");
    const QStringList texts = textsOf(panel);
    QVERIFY(texts.contains("no such file"));
    QVERIFY(!texts.contains("Expiry"));
}

void PanelsTest::manyFieldsAreShownInPart()
{
    QByteArray pdu = QByteArray::fromHex("8C8498610 08D90"); // m-retrieve-conf 1.0
    for (int i = 0; i < 50'000; ++i)
        pdu += QByteArray("x\0y\0", 4);
    const std::unique_ptr<Message> message = decodeMessage(pdu + QByteArray::fromHex("84A300"));
    const QList<FieldView> header = headerLines(*message);
    QVERIFY(header.size() < MostHeaderLines + 100); // with what was left out
    QCOMPARE(header[MostHeaderLines].name, QStringLiteral("48004 more field(s)"));
    SummaryPanel panel;
    panel.setMessage(*message, header);
    QVERIFY(textsOf(panel).size() < 200);
    QVERIFY(textsOf(panel).contains(QStringLiteral("and more")));
}

QTEST_MAIN(PanelsTest)
#include "panels_test.moc"
