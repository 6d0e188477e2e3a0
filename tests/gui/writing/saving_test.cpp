/*
 * The window to write in: what is saved, kept and asked.
 */
#include "open_compose_window.h"

#include "edit/draft.h"
#include "edit/opened_files.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>

class SavingTest : public OpenComposeWindow
{
    Q_OBJECT

private slots:
    void messageIsWrittenByKeysAndSaved();
    void invalidRecipientPreventsSaving();
    void openedFileIsNeverOverwritten();
    void anotherMessageIsNeverOverwritten();
    void recipientThatIsNotValidIsKept();
    void closingWithARecipientThatIsNotValidAsks();
    void draftIsWrittenBeforeClosingAsks();
    void errorsHaveToBeConfirmed();
    void savedMessageIsSavedAgainUnderItsName();
    void closingUnsavedWorkAsks();
    void closingSavedWorkDoesNotAsk();
    void draftIsOfferedAfterACrash();
    void discardedDraftsAreRemoved();
};

void SavingTest::messageIsWrittenByKeysAndSaved()
{
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")),
                     QStringLiteral("+491, a@example.org"));
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("Subject")), QStringLiteral("Hello"));
    QTest::keyClicks(control<QPlainTextEdit>(QStringLiteral("Text")), QStringLiteral("First"));
    action(QStringLiteral("Add Slide"))->trigger();
    QTest::keyClicks(control<QPlainTextEdit>(QStringLiteral("Text")), QStringLiteral("Second"));
    QSignalSpy signal(m_window, &ComposeWindow::saved);
    action(QStringLiteral("Save"))->trigger();
    QCOMPARE(signal.count(), 1);
    const std::unique_ptr<Message> message = saved();
    QVERIFY(!message->isRefused());
    QCOMPARE(message->subject(), QStringLiteral("Hello"));
    QCOMPARE(message->header().getToRecipients().count(), 2);
    QCOMPARE(message->slides().getTotalSlidesNum(), 2U);
    QVERIFY(!m_window->isWindowModified());
}

void SavingTest::invalidRecipientPreventsSaving()
{
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")), QStringLiteral("nonsense"));
    QVERIFY(!m_window->save());
    QVERIFY(!QFile::exists(m_saveAs));
}

void SavingTest::openedFileIsNeverOverwritten()
{
    const QString opened = write(QStringLiteral("opened.mms"), "as it was");
    OpenedFiles::add(opened);
    QVERIFY(QFile::link(opened, path(QStringLiteral("link.mms"))));
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")), QStringLiteral("+491"));
    QTest::keyClicks(control<QPlainTextEdit>(QStringLiteral("Text")), QStringLiteral("a"));
    for (const char *name : {"opened.mms", "link.mms"}) {
        m_saveAs = path(QString::fromLatin1(name));
        QVERIFY(!m_window->save());
    }
    QCOMPARE(m_refused.size(), 2);
    QFile file(opened);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("as it was"));
}

void SavingTest::anotherMessageIsNeverOverwritten()
{
    m_saveAs = write(QStringLiteral("received.mms"), "\x8C\x84");
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")), QStringLiteral("+491"));
    QTest::keyClicks(control<QPlainTextEdit>(QStringLiteral("Text")), QStringLiteral("a"));
    QVERIFY(!m_window->save());
    QCOMPARE(m_refused.size(), 1);
    m_saveAs = write(QStringLiteral("notes.mms"), "no message");
    QVERIFY(m_window->save()); // the file dialog asked
}

void SavingTest::recipientThatIsNotValidIsKept()
{
    auto *to = control<QLineEdit>(QStringLiteral("To"));
    to->setFocus();
    QTest::keyClicks(to, QStringLiteral("+491, alice@"));
    QTest::keyClick(to, Qt::Key_Return);
    auto *subject = control<QLineEdit>(QStringLiteral("Subject"));
    subject->setFocus();
    QTest::keyClicks(subject, QStringLiteral("Hello"));
    QCOMPARE(to->text(), QStringLiteral("+491, alice@"));
    QVERIFY(!to->accessibleDescription().isEmpty());
    QVERIFY(!m_window->save());
    QVERIFY(!QFile::exists(m_saveAs));
}

void SavingTest::closingWithARecipientThatIsNotValidAsks()
{
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")), QStringLiteral("alice@"));
    QVERIFY(!m_window->close());
    QCOMPARE(m_unsavedAsked, 1);
    m_unsaved = Questions::Discard;
    QVERIFY(m_window->close());
}

void SavingTest::draftIsWrittenBeforeClosingAsks()
{
    const QDir folder(MessageDraft::standardFolder());
    const qsizetype before = folder.entryList({QStringLiteral("*.mms")}, QDir::Files).size();
    QTest::keyClicks(control<QPlainTextEdit>(QStringLiteral("Text")), QStringLiteral("a"));
    QVERIFY(!m_window->close()); // asked, and canceled
    QCOMPARE(folder.entryList({QStringLiteral("*.mms")}, QDir::Files).size(), before + 1);
}

void SavingTest::errorsHaveToBeConfirmed()
{
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")), QStringLiteral("+491"));
    m_files = {write(QStringLiteral("noise.png"), noise({400, 400}))}; // above 300 KB
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    QTRY_VERIFY(m_editor->objectIndex(0, SMIL_MEDIA_IMAGE) >= 0);
    m_savesWithErrors = false;
    QVERIFY(!m_window->save());
    QVERIFY(!m_errors.isEmpty());
    QVERIFY(!QFile::exists(m_saveAs));
    m_savesWithErrors = true;
    QVERIFY(m_window->save());
    QVERIFY(QFile::exists(m_saveAs));
}

void SavingTest::savedMessageIsSavedAgainUnderItsName()
{
    m_saveAs = path(QStringLiteral("again.mms"));
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")), QStringLiteral("+491"));
    auto *text = control<QPlainTextEdit>(QStringLiteral("Text"));
    QTest::keyClicks(text, QStringLiteral("a"));
    QVERIFY(m_window->save());
    OpenedFiles::add(m_saveAs); // looked at meanwhile
    QTest::keyClicks(text, QStringLiteral("b"));
    QVERIFY(m_window->isWindowModified());
    const QString name = std::exchange(m_saveAs, QString());
    QVERIFY(m_window->save());
    m_saveAs = name;
    QCOMPARE(saved()->text(*saved()->parts().getBodypartByIndex(1)), QStringLiteral("ab"));
}

void SavingTest::closingUnsavedWorkAsks()
{
    QTest::keyClicks(control<QPlainTextEdit>(QStringLiteral("Text")), QStringLiteral("a"));
    QVERIFY(!m_window->close());
    QCOMPARE(m_unsavedAsked, 1);
    m_unsaved = Questions::Save; // which fails without recipients
    QVERIFY(!m_window->close());
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")), QStringLiteral("+491"));
    QVERIFY(m_window->close());
    QVERIFY(QFile::exists(m_saveAs));
}

void SavingTest::closingSavedWorkDoesNotAsk()
{
    QVERIFY(m_window->close());
    QCOMPARE(m_unsavedAsked, 0);
}

void SavingTest::draftIsOfferedAfterACrash()
{
    // The editor of a program that ended without closing its window.
    {
        QString error;
        std::unique_ptr<MessageDraft> draft =
            MessageDraft::create(MessageDraft::standardFolder(), &error);
        QVERIFY2(draft, qPrintable(error));
        const std::unique_ptr<Editor> editor = Beginnings::newMessage();
        editor->setText(0, QStringLiteral("survives"));
        QVERIFY(draft->write(editor->encodeDraft().pdu, &error));
    }
    m_drafts = Questions::Save;
    QCOMPARE(ComposeWindow::offerDrafts(nullptr, questions()), 1);
    ComposeWindow *resumed = nullptr;
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        auto *window = qobject_cast<ComposeWindow *>(widget);
        if (window && window != m_window)
            resumed = window;
    }
    QVERIFY(resumed);
    QCOMPARE(resumed->editor().text(0), QStringLiteral("survives"));
    QVERIFY(resumed->isWindowModified()); // it was never saved
    QCOMPARE(ComposeWindow::offerDrafts(nullptr, questions()), 0); // the window has it
    m_unsaved = Questions::Discard;
    resumed->close();
    QCOMPARE(MessageDraft::abandoned(MessageDraft::standardFolder()).size(), 0);
}

void SavingTest::discardedDraftsAreRemoved()
{
    QString error;
    {
        std::unique_ptr<MessageDraft> draft =
            MessageDraft::create(MessageDraft::standardFolder(), &error);
        QVERIFY(draft->write(Beginnings::newMessage()->encodeDraft().pdu, &error));
    }
    m_drafts = Questions::Cancel;
    QCOMPARE(ComposeWindow::offerDrafts(nullptr, questions()), 0);
    QCOMPARE(MessageDraft::abandoned(MessageDraft::standardFolder()).size(), 1);
    m_drafts = Questions::Discard;
    QCOMPARE(ComposeWindow::offerDrafts(nullptr, questions()), 0);
    QCOMPARE(MessageDraft::abandoned(MessageDraft::standardFolder()).size(), 0);
}

QTEST_MAIN(SavingTest)
#include "saving_test.moc"
