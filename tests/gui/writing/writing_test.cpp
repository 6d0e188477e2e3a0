/*
 * The window to write in: what each control does.
 */
#include "open_compose_window.h"

#include "edit/smaller_picture.h"
#include "writing/attachments_list.h"
#include "writing/size_gauge.h"
#include "writing/slide_form.h"
#include "writing/slide_strip.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>

class WritingTest : public OpenComposeWindow
{
    Q_OBJECT

private slots:
    void typingIsOneStepAndUndoShowsEverywhere();
    void invalidRecipientSaysWhy();
    void optionsChangeTheMessage();
    void slidesAreAddedDuplicatedMovedAndDeleted();
    void pictureIsAddedReplacedAndRemoved();
    void pictureIsNoSound();
    void soundMakesTheDurationAutomatic();
    void colorsAndSizesFollowUndo();
    void filesThatAreNoMediaAreAttached();
    void droppedFilesAreAdded();
    void smallerCopyIsOffered();
    void gaugeSaysTheExcess();
    void durationIsTypedAsOneStep();
    void undoKeyWorksInNumbers();
    void cursorStaysAtTheEndAfterUndo();
    void narrowWindowFitsAPhone();
    void furtherDroppedPicturesGetSlides();
    void pictureStaysOnItsSlideWhileItIsRead();
    void replyHasTheSender();
};

void WritingTest::typingIsOneStepAndUndoShowsEverywhere()
{
    auto *subject = control<QLineEdit>(QStringLiteral("Subject"));
    auto *text = control<QPlainTextEdit>(QStringLiteral("Text"));
    QTest::keyClicks(subject, QStringLiteral("Hello"));
    QTest::keyClicks(text, QStringLiteral("Words"));
    QCOMPARE(m_editor->steps()->count(), 2);
    QTest::keyClick(text, Qt::Key_Z, Qt::ControlModifier);
    action(QStringLiteral("Undo"))->trigger();
    QVERIFY(text->toPlainText().isEmpty());
    action(QStringLiteral("Undo"))->trigger();
    QCOMPARE(subject->text(), QString());
    action(QStringLiteral("Redo"))->trigger();
    QCOMPARE(subject->text(), QStringLiteral("Hello"));
}

void WritingTest::invalidRecipientSaysWhy()
{
    auto *to = control<QLineEdit>(QStringLiteral("To"));
    to->setFocus();
    QTest::keyClicks(to, QStringLiteral("+491, nonsense"));
    QTest::keyClick(to, Qt::Key_Return);
    QVERIFY2(to->accessibleDescription().contains(QStringLiteral("nonsense")),
             qPrintable(to->accessibleDescription()));
    QCOMPARE(to->text(), QStringLiteral("+491, nonsense")); // nothing that was typed is lost
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(to, Qt::Key_Backspace);
    QCOMPARE(to->accessibleDescription(), QString());
    QCOMPARE(m_editor->message().header().getToRecipients().count(), 1);
}

void WritingTest::optionsChangeTheMessage()
{
    auto *report = control<QCheckBox>(QStringLiteral("Delivery report"));
    report->click();
    QVERIFY(m_editor->state().header->deliveryReport);
    control<QCheckBox>(QStringLiteral("Expires after"))->click();
    auto *days = control<QSpinBox>(QStringLiteral("Days until the message expires"));
    days->setValue(3);
    QCOMPARE(m_editor->state().header->expiry, 3 * 24 * 60 * 60);
    auto *priority = control<QComboBox>(QStringLiteral("Priority"));
    priority->setCurrentIndex(2);
    emit priority->activated(2);
    QCOMPARE(int(m_editor->state().header->priority), int(QvlPriority::High));
    while (m_editor->steps()->canUndo())
        m_editor->steps()->undo();
    QVERIFY(!report->isChecked());
    QVERIFY(!days->isEnabled());
    QCOMPARE(priority->currentIndex(), 1);
}

void WritingTest::slidesAreAddedDuplicatedMovedAndDeleted()
{
    auto *strip = m_window->findChild<SlideStrip *>();
    auto *text = control<QPlainTextEdit>(QStringLiteral("Text"));
    QTest::keyClicks(text, QStringLiteral("one"));
    action(QStringLiteral("Add Slide"))->trigger();
    QCOMPARE(strip->current(), 1);
    QTest::keyClicks(text, QStringLiteral("two"));
    action(QStringLiteral("Duplicate Slide"))->trigger();
    QCOMPARE(m_editor->slideCount(), 3);
    QCOMPARE(m_editor->text(2), QStringLiteral("two"));
    action(QStringLiteral("Move Slide Up"))->trigger();
    action(QStringLiteral("Move Slide Up"))->trigger();
    QCOMPARE(strip->current(), 0);
    QCOMPARE(m_editor->text(1), QStringLiteral("one"));
    QVERIFY(!action(QStringLiteral("Move Slide Up"))->isEnabled());
    action(QStringLiteral("Move Slide Down"))->trigger();
    QCOMPARE(m_editor->text(0), QStringLiteral("one"));
    action(QStringLiteral("Delete Slide"))->trigger();
    action(QStringLiteral("Delete Slide"))->trigger();
    QCOMPARE(m_editor->slideCount(), 1);
    QVERIFY(!action(QStringLiteral("Delete Slide"))->isEnabled());
    QCOMPARE(text->toPlainText(), m_editor->text(0));
}

void WritingTest::pictureIsAddedReplacedAndRemoved()
{
    m_files = {write(QStringLiteral("red.png"), coloredPicture(Qt::red))};
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    const auto index = [this] { return m_editor->objectIndex(0, SMIL_MEDIA_IMAGE); };
    QVERIFY(index() >= 0);
    QCOMPARE(m_editor->slide(0)->getMediaObject(unsigned(index()))->getSrc(),
             QStringLiteral("red.png"));
    m_files = {write(QStringLiteral("blue.png"), coloredPicture(Qt::blue))};
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    QCOMPARE(m_editor->slide(0)->getMediaObject(unsigned(index()))->getSrc(),
             QStringLiteral("blue.png"));
    control<QPushButton>(QStringLiteral("Remove the picture or video"))->click();
    QVERIFY(index() < 0);
    m_editor->steps()->undo();
    QVERIFY(index() >= 0);
    QVERIFY(control<QPushButton>(QStringLiteral("Remove the picture or video"))->isEnabled());
}

void WritingTest::pictureIsNoSound()
{
    m_files = {write(QStringLiteral("red.png"), coloredPicture(Qt::red))};
    control<QPushButton>(QStringLiteral("Choose Sound"))->click();
    QCOMPARE(m_editor->objectIndex(0, SMIL_MEDIA_IMAGE), -1);
    m_files = {QStringLiteral(QVL_FIXTURES "/clips/sound.amr")};
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    QCOMPARE(m_editor->objectIndex(0, SMIL_MEDIA_AUDIO), -1);
}

void WritingTest::soundMakesTheDurationAutomatic()
{
    auto *isFixed = control<QCheckBox>(QStringLiteral("Fixed"));
    isFixed->click();
    auto *seconds = control<QDoubleSpinBox>(QStringLiteral("Duration of the slide in seconds"));
    seconds->setValue(2.5);
    QCOMPARE(m_editor->slide(0)->getDur(), 2500);
    m_files = {QStringLiteral(QVL_FIXTURES "/clips/sound.amr")};
    control<QPushButton>(QStringLiteral("Choose Sound"))->click();
    QVERIFY(m_editor->objectIndex(0, SMIL_MEDIA_AUDIO) >= 0);
    QVERIFY(!isFixed->isEnabled());
    bool saysWhy = false;
    for (const QLabel *label : m_window->findChildren<QLabel *>())
        saysWhy =
            saysWhy || (label->isVisible() && label->text() == m_editor->whyNoFixedDuration(0));
    QVERIFY(saysWhy);
}

void WritingTest::colorsAndSizesFollowUndo()
{
    QTest::keyClicks(control<QPlainTextEdit>(QStringLiteral("Text")), QStringLiteral("a"));
    auto *color = control<QComboBox>(QStringLiteral("Page color"));
    const int navy = color->findText(QStringLiteral("Navy"));
    color->setCurrentIndex(navy);
    emit color->activated(navy);
    QCOMPARE(m_editor->slide(0)->getPageColor().color, QColor(Qt::darkBlue));
    auto *size = control<QComboBox>(QStringLiteral("Text size"));
    size->setCurrentIndex(3);
    emit size->activated(3);
    QCOMPARE(m_editor->slide(0)->getTextSize(), QStringLiteral("large"));
    m_editor->steps()->undo();
    QCOMPARE(size->currentIndex(), 0);
    m_editor->steps()->undo();
    QCOMPARE(color->currentIndex(), 0);
}

void WritingTest::filesThatAreNoMediaAreAttached()
{
    m_files = {write(QStringLiteral("card.vcf"), "BEGIN:VCARD\nEND:VCARD\n")};
    control<QPushButton>(QStringLiteral("Attach File"))->click();
    auto *list = m_window->findChild<AttachmentsList *>()->findChild<QListWidget *>();
    QCOMPARE(list->count(), 1);
    QVERIFY(list->item(0)->text().startsWith(QStringLiteral("card.vcf")));
    control<QPushButton>(QStringLiteral("Remove Attachment"))->click();
    QCOMPARE(list->count(), 0);
}

void WritingTest::droppedFilesAreAdded()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(write(QStringLiteral("a.png"), coloredPicture(Qt::red))),
                  QUrl::fromLocalFile(write(QStringLiteral("a.vcf"), "BEGIN:VCARD\n"))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window, &drop);
    QVERIFY(m_editor->objectIndex(0, SMIL_MEDIA_IMAGE) >= 0);
    QCOMPARE(m_window->findChild<AttachmentsList *>()->findChild<QListWidget *>()->count(), 1);
}

void WritingTest::smallerCopyIsOffered()
{
    const QByteArray large = noise({1000, 800});
    m_files = {write(QStringLiteral("large.png"), large)};
    m_takesSmaller = true;
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    QTRY_VERIFY_WITH_TIMEOUT(m_editor->objectIndex(0, SMIL_MEDIA_IMAGE) >= 0, 20'000);
    QCOMPARE(m_smallerAsked, 1);
    QVERIFY(m_editor->size() < large.size());
    m_takesSmaller = false;
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    QTRY_VERIFY_WITH_TIMEOUT(m_editor->size() > large.size(), 20'000);
    QCOMPARE(m_smallerAsked, 2);
}

void WritingTest::durationIsTypedAsOneStep()
{
    control<QCheckBox>(QStringLiteral("Fixed"))->click();
    auto *seconds = control<QDoubleSpinBox>(QStringLiteral("Duration of the slide in seconds"));
    const int steps = m_editor->steps()->count();
    seconds->setFocus();
    seconds->selectAll();
    QTest::keyClicks(seconds, QStringLiteral("12.5"));
    QTest::keyClick(seconds, Qt::Key_Return);
    QCOMPARE(m_editor->slide(0)->getDur(), 12'500);
    QCOMPARE(m_editor->steps()->count(), steps + 1);
}

void WritingTest::cursorStaysAtTheEndAfterUndo()
{
    auto *text = control<QPlainTextEdit>(QStringLiteral("Text"));
    QTest::keyClicks(text, QStringLiteral("ab"));
    action(QStringLiteral("Undo"))->trigger();
    action(QStringLiteral("Redo"))->trigger();
    QTest::keyClicks(text, QStringLiteral("c"));
    QCOMPARE(text->toPlainText(), QStringLiteral("abc"));
}

void WritingTest::narrowWindowFitsAPhone()
{
    m_window->resize(360, 640);
    QTRY_COMPARE(m_window->size(), QSize(360, 640));
    QVERIFY(control<QLineEdit>(QStringLiteral("Subject"))->width() > 150);
    m_window->resize(980, 760);
}

void WritingTest::undoKeyWorksInNumbers()
{
    control<QCheckBox>(QStringLiteral("Fixed"))->click();
    auto *seconds = control<QDoubleSpinBox>(QStringLiteral("Duration of the slide in seconds"));
    seconds->setFocus();
    QKeyEvent undo(QEvent::ShortcutOverride, Qt::Key_Z, Qt::ControlModifier);
    undo.ignore();
    QApplication::sendEvent(seconds, &undo);
    QVERIFY(!undo.isAccepted()); // so that it reaches the window's command
}

void WritingTest::furtherDroppedPicturesGetSlides()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(write(QStringLiteral("a.png"), coloredPicture(Qt::red))),
                  QUrl::fromLocalFile(QStringLiteral(QVL_FIXTURES "/clips/sound.amr")),
                  QUrl::fromLocalFile(write(QStringLiteral("b.png"), coloredPicture(Qt::blue)))});
    QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QApplication::sendEvent(m_window, &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window, &drop);
    QVERIFY(drop.isAccepted());
    QCOMPARE(drop.dropAction(), Qt::CopyAction); // the files stay where they are
    QCOMPARE(m_editor->slideCount(), 2);
    QVERIFY(m_editor->objectIndex(0, SMIL_MEDIA_IMAGE) >= 0);
    QVERIFY(m_editor->objectIndex(0, SMIL_MEDIA_AUDIO) >= 0);
    QVERIFY(m_editor->objectIndex(1, SMIL_MEDIA_IMAGE) >= 0);
    QVERIFY(!control<QPlainTextEdit>(QStringLiteral("Text"))->acceptDrops());
    QDragEnterEvent move({5, 5}, Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window, &move);
    QVERIFY(!move.isAccepted());
    QCOMPARE(m_editor->slideCount(), 2);
}

void WritingTest::pictureStaysOnItsSlideWhileItIsRead()
{
    action(QStringLiteral("Add Slide"))->trigger();
    m_files = {write(QStringLiteral("large.png"), noise({300, 300}))};
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    QVERIFY(!m_window->centralWidget()->isEnabled());
    QVERIFY(!m_window->menuBar()->isEnabled());
    QTRY_VERIFY_WITH_TIMEOUT(m_window->centralWidget()->isEnabled(), 20'000);
    QVERIFY(m_window->menuBar()->isEnabled());
    QVERIFY(m_editor->objectIndex(1, SMIL_MEDIA_IMAGE) >= 0);
}

void WritingTest::gaugeSaysTheExcess()
{
    SizeGauge gauge;
    gauge.setSize(1024, 300 * 1024);
    QVERIFY(!gauge.text().contains(QStringLiteral("large")));
    gauge.setSize(310 * 1024, 300 * 1024);
    QVERIFY2(gauge.text().contains(QStringLiteral("too large by 10")), qPrintable(gauge.text()));
}

void WritingTest::replyHasTheSender()
{
    QString error;
    const std::unique_ptr<Message> message =
        readMessage(QStringLiteral(QVL_FIXTURES "/messages/notification.mms"), {}, &error);
    QVERIFY2(message, qPrintable(error));
    m_window->close();
    QTRY_VERIFY(!m_window);
    m_window = ComposeWindow::open(Beginnings::replyTo(*message), questions());
    QCOMPARE(control<QLineEdit>(QStringLiteral("To"))->text(), QStringLiteral("+4915112345678"));
    QCOMPARE(control<QLineEdit>(QStringLiteral("Subject"))->text(), QStringLiteral("Re: Photos"));
}

QTEST_MAIN(WritingTest)
#include "writing_test.moc"
