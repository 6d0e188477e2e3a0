/*
 * Messages with which writing begins, and a message on its way through reply, edit, save and
 * `qvlmms show`.
 */
#include "edit/beginnings.h"

#include "sample_message.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using SampleMessage::facts;

namespace {

QByteArray pduOf(Message &message)
{
    QByteArray pdu;
    std::ignore = message.storeSlides();
    std::ignore = message.encode(&pdu);
    return pdu;
}

// As a relay delivers the sample.
std::unique_ptr<Message> received()
{
    const auto message = SampleMessage::create();
    MMS_UA_UAMsg &header = message->header();
    header.setMessageType(QvlMessageType::RetrieveConf);
    header.setMessageId("id");
    header.setFrom({QString(), MMS_UTIL_Entry::Plmn, "+4930111"});
    header.addToRecipient({QString(), MMS_UTIL_Entry::Email, "other@example.org"});
    header.addCcRecipient({QString(), MMS_UTIL_Entry::Plmn, "+4930222"});
    header.addFieldsPresent(headerFieldMask(HeaderFieldCode::From)
                            | headerFieldMask(HeaderFieldCode::Cc));
    return decodeMessage(pduOf(*message));
}

QStringList addresses(const QPtrList<MMS_UTIL_Entry> &entries)
{
    QStringList texts;
    for (const MMS_UTIL_Entry *entry : entries)
        texts += entry->getAddress();
    return texts;
}

std::unique_ptr<Message> saved(const Editor &editor)
{
    const Outgoing outgoing = editor.encodeToSave();
    if (!outgoing.problem.isEmpty())
        qWarning("%s", qPrintable(outgoing.problem));
    return decodeMessage(outgoing.pdu);
}

// Mimics the names of hostile and careless senders.
std::unique_ptr<Message> withNames(const QStringList &locations)
{
    auto message = std::make_unique<Message>();
    SampleMessage::beginHeader(&message->header());
    for (const QString &location : locations) {
        auto *part = new MMS_COMP_SMILMultipartBodypart;
        part->setContentType(QStringLiteral("text"));
        part->setContentSubType(QStringLiteral("plain"));
        part->setContentLocation(location);
        part->setBodyData(QByteArray("text ") + location.toUtf8());
        message->parts().appendBodypart(part);
    }
    std::ignore = message->present();
    return message;
}

} // namespace

class BeginningsTest : public QObject
{
    Q_OBJECT

private slots:
    void aReplyGoesToTheSender()
    {
        const auto message = received();
        QVERIFY(Beginnings::canReplyTo(*message));
        const auto editor = Beginnings::replyTo(*message);
        const MMS_UA_UAMsg &header = editor->message().header();
        QCOMPARE(addresses(header.getToRecipients()), QStringList("+4930111"));
        QVERIFY(header.getCcRecipients().isEmpty());
        QCOMPARE(header.getSubject(), QStringLiteral("Re: Sample"));
        QCOMPARE(header.getMessageType(), QvlMessageType::SendReq);
        QCOMPARE(editor->slideCount(), 1);
        QVERIFY(!editor->isModified());
    }

    void aReplyToAllLeavesOutTheUser()
    {
        const auto editor = Beginnings::replyToAll(*received(), "+491701234567");
        const MMS_UA_UAMsg &header = editor->message().header();
        QCOMPARE(addresses(header.getToRecipients()),
                 (QStringList{"+4930111", "other@example.org"}));
        QCOMPARE(addresses(header.getCcRecipients()), QStringList("+4930222"));
    }

    void aReplyToAReplyHasOnePrefix()
    {
        const auto message = received();
        message->header().setSubject("RE: Sample");
        QCOMPARE(Beginnings::replyTo(*message)->message().header().getSubject(),
                 QStringLiteral("RE: Sample"));
    }

    void nobodyIsAnsweredWithoutASender()
    {
        const auto message = received();
        message->header().setFrom({QString(), MMS_UTIL_Entry::Absent, QString()});
        QVERIFY(!Beginnings::canReplyTo(*message));
    }

    void aForwardedMessageHasTheContentAndNoRecipient()
    {
        const auto message = received();
        const auto editor = Beginnings::forward(*message);
        const MMS_UA_UAMsg &header = editor->message().header();
        QCOMPARE(header.getSubject(), QStringLiteral("Fwd: Sample"));
        QVERIFY(header.getToRecipients().isEmpty());
        QCOMPARE(editor->setRecipients(Recipients::To, {"+1555"}), QString());
        const auto read = saved(*editor);
        QCOMPARE(read->parts().getPartCount(), message->parts().getPartCount());
        QCOMPARE(read->smilText(), message->smilText());
        for (int i = 1; i < read->parts().getPartCount(); ++i)
            QCOMPARE(read->parts().getBodypartByIndex(i)->getBodyData(),
                     message->parts().getBodypartByIndex(i)->getBodyData());
    }

    void editingAsNewKeepsRecipientsAndWishes()
    {
        auto message = SampleMessage::create();
        Editor first(std::move(message));
        const QDateTime later = QDateTime::fromSecsSinceEpoch(1'900'000'000);
        QCOMPARE(first.setRecipients(Recipients::Bcc, {"b@example.org"}), QString());
        QCOMPARE(first.setPriority(QvlPriority::Low), QString());
        QCOMPARE(first.setDeliveryReport(true), QString());
        QCOMPARE(first.setReadReport(true), QString());
        QCOMPARE(first.setExpiry(7200), QString());
        QCOMPARE(first.setDeliveryTime(later), QString());
        QCOMPARE(first.setDuration(0, 2500), QString());
        const auto second = Beginnings::editAsNew(*saved(first));
        const MMS_UA_UAMsg &header = second->message().header();
        QCOMPARE(addresses(header.getToRecipients()), QStringList("+491701234567"));
        QCOMPARE(addresses(header.getBccRecipients()), QStringList("b@example.org"));
        QCOMPARE(header.getPriority(), QvlPriority::Low);
        QVERIFY(header.getDeliveryReport() && header.getReadReply());
        QCOMPARE(header.getExpiry(), 7200);
        QCOMPARE(header.getDeliveryTime(), later);
        QCOMPARE(header.getFieldsPresent(), first.message().header().getFieldsPresent());
        QCOMPARE(second->slide(0)->getDur(), 2500);
        QVERIFY(second->slide(0)->getSetDurManually());
        QVERIFY(!second->slide(1)->getSetDurManually());
        QVERIFY(header.getTransactionId() != QLatin1String("t1"));
    }

    void eachPartGetsANameThatSmilCanHold()
    {
        const auto message = withNames({"same.txt", "SAME.txt", "", "a&b<c>.txt", "\"q\".txt"});
        const auto editor = Beginnings::editAsNew(*message);
        QCOMPARE(editor->slideCount(), 5);
        const auto read = saved(*editor);
        QVERIFY(!read->isRefused());
        QCOMPARE(read->slides().getTotalSlidesNum(), 5U);
        for (int i = 0; i < 5; ++i)
            QCOMPARE(editor->text(i), message->text(*message->parts().getBodypartByIndex(i)));
        QCOMPARE(editor->deleteSlide(0), QString());
        QCOMPARE(editor->text(0), QStringLiteral("text SAME.txt"));
        QCOMPARE(editor->message().parts().getPartCount(), 4);
    }

    void theRootColorBecomesThatOfTheSlides()
    {
        const auto message =
            readMessage(QStringLiteral(QVL_FIXTURES "/show/colored-root.mms"), {}, nullptr);
        QVERIFY(message);
        const auto editor = Beginnings::editAsNew(*message);
        QVERIFY(editor->slideCount() > 0);
        QVERIFY(editor->slide(0)->getPageColor().isUsable());
        QVERIFY(!editor->message().slides().getRootLayout()->getBackgroundColor()->isUsable());
    }

    void slidesThatCannotBeReadAreGenerated()
    {
        const auto message =
            readMessage(QStringLiteral(QVL_FIXTURES "/show/smil-not-well-formed.mms"), {}, nullptr);
        QVERIFY(message && message->isRefused());
        const auto editor = Beginnings::forward(*message);
        QVERIFY(editor->slideCount() > 0);
        QCOMPARE(editor->setRecipients(Recipients::To, {"+1555"}), QString());
        QVERIFY(!saved(*editor)->isRefused());
    }

    void everyFixtureCanBeForwarded_data()
    {
        QTest::addColumn<QString>("fileName");
        for (const char *folder : {QVL_FIXTURES "/show", QVL_FIXTURES "/messages"}) {
            const QDir files(QString::fromLocal8Bit(folder));
            for (const QString &name : files.entryList({"*.mms"}))
                QTest::newRow(qPrintable(name)) << files.filePath(name);
        }
    }

    void everyFixtureCanBeForwarded()
    {
        QFETCH(const QString, fileName);
        QString error;
        const auto message = readMessage(fileName, {}, &error);
        QVERIFY2(message, qPrintable(error));
        if (!Beginnings::canForward(*message))
            return;
        const auto editor = Beginnings::forward(*message);
        QCOMPARE(editor->setRecipients(Recipients::To, {"+1555"}), QString());
        const Outgoing draft = editor->encodeDraft();
        QCOMPARE(draft.problem, QString());
        QVERIFY(!decodeMessage(draft.pdu)->isRefused());
    }

    void showReadsAnEditedReply()
    {
        const auto editor = Beginnings::replyTo(*received());
        QCOMPARE(editor->setText(0, "Yes, at noon"), QString());
        QCOMPARE(editor->addMedia(0, "map.png", coloredPicture(Qt::blue), Editor::Insert),
                 QString());
        QCOMPARE(editor->addSlide(1), QString());
        QCOMPARE(editor->setText(1, "See you"), QString());
        const Outgoing outgoing = editor->encodeToSave();
        QCOMPARE(outgoing.problem, QString());
        const QTemporaryDir folder;
        QFile file(folder.filePath("reply.mms"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(outgoing.pdu) > 0);
        file.close();
        QProcess show;
        show.start(QStringLiteral(QVLMMS), {"show", file.fileName()});
        QVERIFY(show.waitForFinished());
        QCOMPARE(show.exitCode(), 0);
        const QString output = QString::fromUtf8(show.readAllStandardOutput());
        for (const char *text :
             {"m-send-req", "Re: Sample", "+4930111", "Yes, at noon", "map.png", "See you"})
            QVERIFY2(output.contains(QLatin1String(text), Qt::CaseInsensitive), text);
    }
};

QTEST_MAIN(BeginningsTest)
#include "beginnings_test.moc"
