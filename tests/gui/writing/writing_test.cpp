/*
 * The window to write in: what each control does, and what is saved, kept and asked.
 */
#include "writing/attachments_list.h"
#include "writing/compose_window.h"
#include "writing/size_gauge.h"
#include "writing/slide_form.h"
#include "writing/slide_strip.h"

#include "edit/beginnings.h"
#include "edit/opened_files.h"
#include "edit/smaller_picture.h"
#include "input/message.h"
#include "user_folders.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

class WritingTest : public QObject
{
    Q_OBJECT

public:
    static void initMain() { useFoldersOfTheTest(); }

private slots:
    void init();
    void cleanup();

    void messageIsWrittenByKeysAndSaved();
    void typingIsOneStepAndUndoShowsEverywhere();
    void invalidRecipientSaysWhy();
    void invalidRecipientPreventsSaving();
    void optionsChangeTheMessage();
    void slidesAreAddedDuplicatedMovedAndDeleted();
    void pictureIsAddedReplacedAndRemoved();
    void soundMakesTheDurationAutomatic();
    void colorsAndSizesFollowUndo();
    void filesThatAreNoMediaAreAttached();
    void droppedFilesAreAdded();
    void smallerCopyIsOffered();
    void gaugeSaysTheExcess();
    void openedFileIsNeverOverwritten();
    void errorsHaveToBeConfirmed();
    void savedMessageIsSavedAgainUnderItsName();
    void closingUnsavedWorkAsks();
    void closingSavedWorkDoesNotAsk();
    void draftIsOfferedAfterACrash();
    void discardedDraftsAreRemoved();
    void replyHasTheSender();

private:
    QAction *action(const QString &text) const;
    template <typename Control>
    Control *control(const QString &accessibleName) const;
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString write(const QString &name, const QByteArray &octets) const;
    std::unique_ptr<Message> saved() const;

    QTemporaryDir m_folder;
    QPointer<ComposeWindow> m_window;
    Editor *m_editor = nullptr;

    // Answers
    QString m_saveAs;
    QStringList m_files;
    bool m_savesWithErrors = true;
    Questions::Answer m_unsaved = Questions::Cancel;
    bool m_takesSmaller = false;
    Questions::Answer m_drafts = Questions::Cancel;
    // What was asked
    QStringList m_errors;
    QStringList m_refused;
    int m_unsavedAsked = 0;
    int m_smallerAsked = 0;

    Questions questions();
};

namespace {

QByteArray picture(Qt::GlobalColor color, QSize size = {8, 6})
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QByteArray octets;
    QBuffer buffer(&octets);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return octets;
}

QByteArray noise(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    quint32 state = 1;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            state = state * 1664525 + 1013904223;
            image.setPixel(x, y, state);
        }
    }
    QByteArray octets;
    QBuffer buffer(&octets);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return octets;
}

QString plain(QString text)
{
    return text.remove(u'&').remove(QChar(0x2026));
}

} // namespace

Questions WritingTest::questions()
{
    Questions answers;
    answers.saveAs = [this](QWidget *, const QString &) { return m_saveAs; };
    answers.files = [this](QWidget *, const QString &, const QString &) { return m_files; };
    answers.saveWithErrors = [this](QWidget *, const QStringList &errors) {
        m_errors = errors;
        return m_savesWithErrors;
    };
    answers.unsaved = [this](QWidget *) {
        ++m_unsavedAsked;
        return m_unsaved;
    };
    answers.takeSmaller = [this](QWidget *, qint64, const SmallerPicture &) {
        ++m_smallerAsked;
        return m_takesSmaller;
    };
    answers.drafts = [this](QWidget *, int) { return m_drafts; };
    answers.refuse = [this](QWidget *, const QString &, const QString &why) { m_refused += why; };
    return answers;
}

void WritingTest::init()
{
    m_saveAs = path(QStringLiteral("saved.mms"));
    QFile::remove(m_saveAs);
    m_files.clear();
    m_savesWithErrors = true;
    m_unsaved = Questions::Cancel;
    m_takesSmaller = false;
    m_errors.clear();
    m_refused.clear();
    m_unsavedAsked = m_smallerAsked = 0;
    m_window = ComposeWindow::open(Beginnings::newMessage(), questions());
    m_editor = &m_window->editor();
}

void WritingTest::cleanup()
{
    if (m_window && m_window->editor().isModified())
        m_unsaved = Questions::Discard;
    if (m_window)
        m_window->close();
    delete m_window;
    m_drafts = Questions::Discard;
    ComposeWindow::offerDrafts(nullptr, questions());
    m_drafts = Questions::Cancel;
}

QAction *WritingTest::action(const QString &text) const
{
    for (QAction *action : m_window->findChildren<QAction *>()) {
        const QString shown = plain(action->text()); // "Undo" names the step
        if (shown == text || (text.endsWith(u"do") && shown.startsWith(text)))
            return action;
    }
    qFatal("no action %s", qPrintable(text));
}

template <typename Control>
Control *WritingTest::control(const QString &name) const
{
    for (Control *control : m_window->findChildren<Control *>()) {
        QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(control);
        if (control->accessibleName() == name
            || plain(interface->text(QAccessible::Name)).remove(u':') == name)
            return control;
    }
    qFatal("no control %s", qPrintable(name));
}

QString WritingTest::write(const QString &name, const QByteArray &octets) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(octets) != octets.size())
        qFatal("cannot write");
    return path(name);
}

std::unique_ptr<Message> WritingTest::saved() const
{
    QString error;
    std::unique_ptr<Message> message = readMessage(m_saveAs, {}, &error);
    if (!message)
        qFatal("%s", qPrintable(error));
    return message;
}

void WritingTest::messageIsWrittenByKeysAndSaved()
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

void WritingTest::invalidRecipientPreventsSaving()
{
    QTest::keyClicks(control<QLineEdit>(QStringLiteral("To")), QStringLiteral("nonsense"));
    QVERIFY(!m_window->save());
    QVERIFY(!QFile::exists(m_saveAs));
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
    m_files = {write(QStringLiteral("red.png"), picture(Qt::red))};
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    const auto index = [this] { return m_editor->objectIndex(0, SMIL_MEDIA_IMAGE); };
    QVERIFY(index() >= 0);
    QCOMPARE(m_editor->slide(0)->getMediaObject(unsigned(index()))->getSrc(),
             QStringLiteral("red.png"));
    m_files = {write(QStringLiteral("blue.png"), picture(Qt::blue))};
    control<QPushButton>(QStringLiteral("Choose Picture"))->click();
    QCOMPARE(m_editor->slide(0)->getMediaObject(unsigned(index()))->getSrc(),
             QStringLiteral("blue.png"));
    control<QPushButton>(QStringLiteral("Remove the picture or video"))->click();
    QVERIFY(index() < 0);
    m_editor->steps()->undo();
    QVERIFY(index() >= 0);
    QVERIFY(control<QPushButton>(QStringLiteral("Remove the picture or video"))->isEnabled());
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
    const int navy = color->findText(QStringLiteral("navy"));
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
    data.setUrls({QUrl::fromLocalFile(write(QStringLiteral("a.png"), picture(Qt::red))),
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

void WritingTest::gaugeSaysTheExcess()
{
    SizeGauge gauge;
    gauge.setSize(1024, 300 * 1024);
    QVERIFY(!gauge.text().contains(QStringLiteral("large")));
    gauge.setSize(310 * 1024, 300 * 1024);
    QVERIFY2(gauge.text().contains(QStringLiteral("too large by 10")), qPrintable(gauge.text()));
}

void WritingTest::openedFileIsNeverOverwritten()
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

void WritingTest::errorsHaveToBeConfirmed()
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

void WritingTest::savedMessageIsSavedAgainUnderItsName()
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

void WritingTest::closingUnsavedWorkAsks()
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

void WritingTest::closingSavedWorkDoesNotAsk()
{
    QVERIFY(m_window->close());
    QCOMPARE(m_unsavedAsked, 0);
}

void WritingTest::draftIsOfferedAfterACrash()
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

void WritingTest::discardedDraftsAreRemoved()
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
