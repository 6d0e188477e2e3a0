/*
 * The windows on a real display, used with keys and the mouse as a person would.
 *     window_display MESSAGES MEDIA SHOTS [FUNCTION...]
 * MESSAGES is a folder of messages, MEDIA one of files for new messages; screenshots are written to
 * SHOTS.
 */
#include "convert/child.h"
#include "edit/beginnings.h"
#include "input/message.h"
#include "list/message_list_view.h"
#include "stage/stage_panel.h"
#include "window/main_window.h"
#include "window/shortcuts_dialog.h"
#include "writing/compose_window.h"
#include "writing/slide_strip.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProcess>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QTest>
#include <QTimer>
#include <QTranslator>

#include <cstring>

namespace {

QString messages;
QString media;
QString shots;

/// Sends keys and clicks to the display, as a person would, and lets the windows react.
void xdotool(const QStringList &arguments)
{
    QProcess process;
    QSignalSpy finished(&process, &QProcess::finished);
    process.start(QStringLiteral("xdotool"), arguments);
    QVERIFY(finished.count() > 0 || finished.wait(20'000));
    QCOMPARE(process.exitCode(), 0);
    QTest::qWait(100); // the display delivers the events
}

void press(const QString &keys)
{
    xdotool({QStringLiteral("key"), QStringLiteral("--clearmodifiers"), keys});
}

void type(const QString &text)
{
    xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("20"), text});
}

QStringList moveTo(QPoint place)
{
    return {QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())};
}

void drag(QPoint from, QPoint to)
{
    constexpr int Steps = 12;
    QStringList moves = moveTo(from) + QStringList{"mousedown", "1"};
    for (int i = 1; i <= Steps; ++i)
        moves += moveTo(from + (to - from) * i / Steps) + QStringList{"sleep", "0.05"};
    xdotool(
        moves
        + QStringList{"mouseup", "1"}); // at once, because dragging has an event loop of its own
}

void takeShot(const QWidget &window, const char *name)
{
    QTest::qWait(200); // the display shows what was painted
    const QRect frame = window.frameGeometry();
    const QPixmap shot =
        window.screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height());
    QVERIFY(shot.save(shots + u'/' + QString::fromLatin1(name) + QStringLiteral(".png")));
}

/// A window that has the focus; it is deleted with the object.
template <typename Window>
class Shown
{
public:
    explicit Shown(Window *window, QSize size = {1100, 700}) : m_window(window)
    {
        window->resize(size);
        window->move(60, 40);
        window->setVisible(true);
        for (int i = 0; i < 20; ++i) { // the window manager may still be starting
            window->activateWindow();
            if (QTest::qWaitForWindowActive(window, 1000))
                return;
        }
        qFatal("the window does not get the focus");
    }
    ~Shown() { delete m_window; }
    Shown(const Shown &) = delete;
    Shown &operator=(const Shown &) = delete;

    Window *operator->() const { return m_window; }
    Window &operator*() const { return *m_window; }

private:
    QPointer<Window> m_window;
};

} // namespace

class DisplayTest : public QObject
{
    Q_OBJECT

private slots:
    void folderIsListedAndChosenByKeys();
    void messageWithSoundPlaysToItsEnd();
    void messageWithVideoPlaysToItsEnd();
    void refusedMessageIsExplained();
    void windowsFitSmallAndLargeScreens();
    void darkAndRightToLeft();
    void fullScreenAndBack();
    void slideIsDragged();
    void messageIsComposedByKeyboardAlone();
    void dialogsAreComplete();

private:
    void playsToItsEnd(const char *name, const char *shot);
};

void DisplayTest::folderIsListedAndChosenByKeys()
{
    const Shown window(new MainWindow, QSize(1200, 760));
    takeShot(*window, "empty");
    window->open({messages});
    QTRY_VERIFY_WITH_TIMEOUT(!window->isBusy(), 20'000);
    auto *view = window->findChild<MessageListView *>()->findChild<QAbstractItemView *>();
    QCOMPARE(view->model()->rowCount(), QDir(messages).entryList({"*.mms"}, QDir::Files).size());
    view->setFocus();
    press(QStringLiteral("ctrl+Home"));
    const QString first = window->shown().fileName;
    press(QStringLiteral("Down"));
    QTRY_VERIFY(window->shown().fileName != first);
    press(QStringLiteral("ctrl+f"));
    type(QStringLiteral("coast"));
    QTRY_COMPARE(view->model()->rowCount(), 1);
    press(QStringLiteral("Tab"));
    view->setFocus();
    press(QStringLiteral("Home"));
    QTRY_COMPARE(QFileInfo(window->shown().fileName).fileName(), QStringLiteral("holiday.mms"));
    press(QStringLiteral("ctrl+f"));
    press(QStringLiteral("Escape"));
    QTRY_VERIFY(view->model()->rowCount() > 1);
    QTRY_VERIFY(!window->isBusy());
    QTest::qWait(500); // thumbnails
    takeShot(*window, "window");
}

void DisplayTest::playsToItsEnd(const char *name, const char *shot)
{
    const Shown window(new MainWindow);
    window->open({messages + u'/' + QString::fromLatin1(name)});
    QTRY_VERIFY(!window->isBusy());
    auto *stage = window->findChild<StagePanel *>();
    stage->setFocus();
    press(QStringLiteral("space"));
    QTRY_VERIFY_WITH_TIMEOUT(stage->isPlaying(), 5000);
    QTest::qWait(1000);
    takeShot(*window, shot);
    QTRY_VERIFY_WITH_TIMEOUT(!stage->isPlaying(), 20'000);
    QVERIFY(stage->isAtEnd());
    const auto *remarks = stage->findChild<QPlainTextEdit *>(); // what could not be played
    QVERIFY2(remarks->isHidden(), qPrintable(remarks->toPlainText()));
}

void DisplayTest::messageWithSoundPlaysToItsEnd()
{
    playsToItsEnd("tune.mms", "sound");
}

void DisplayTest::messageWithVideoPlaysToItsEnd()
{
    playsToItsEnd("film.mms", "video");
}

void DisplayTest::refusedMessageIsExplained()
{
    const Shown window(new MainWindow);
    window->open({messages + QStringLiteral("/truncated.mms")});
    QTRY_VERIFY(!window->isBusy());
    press(QStringLiteral("alt+p")); // "Show Problems"
    takeShot(*window, "refused");
    window->open({messages + QStringLiteral("/none.mms")});
    QTRY_VERIFY(!window->isBusy());
    takeShot(*window, "error");
    window->open({messages + QStringLiteral("/notification.mms")});
    QTRY_VERIFY(!window->isBusy());
    takeShot(*window, "notification");
}

void DisplayTest::windowsFitSmallAndLargeScreens()
{
    for (const auto &[name, size] : {std::pair("small", QSize(640, 480)), {"large", {1200, 840}}}) {
        const Shown window(new MainWindow, size);
        window->open({messages + QStringLiteral("/holiday.mms")});
        QTRY_VERIFY(!window->isBusy());
        takeShot(*window, name);
        QVERIFY2(window->width() <= size.width() && window->height() <= size.height(), name);
    }
}

void DisplayTest::darkAndRightToLeft()
{
    const QPalette light = QApplication::palette();
    QApplication::setPalette(QPalette(QColor(53, 53, 53), QColor(35, 35, 35)));
    {
        const Shown window(new MainWindow);
        window->open({messages});
        QTRY_VERIFY_WITH_TIMEOUT(!window->isBusy(), 20'000);
        takeShot(*window, "dark");
        const Shown writing(ComposeWindow::open(Beginnings::newMessage()));
        takeShot(*writing, "dark-writing");
    }
    QApplication::setPalette(light);
    QApplication::setLayoutDirection(Qt::RightToLeft);
    {
        const Shown window(new MainWindow);
        window->open({messages + QStringLiteral("/holiday.mms")});
        QTRY_VERIFY(!window->isBusy());
        takeShot(*window, "right-to-left");
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void DisplayTest::fullScreenAndBack()
{
    const Shown window(new MainWindow);
    window->open({messages + QStringLiteral("/holiday.mms")});
    QTRY_VERIFY(!window->isBusy());
    auto *stage = window->findChild<StagePanel *>();
    stage->setFocus();
    press(QStringLiteral("F11"));
    QTRY_VERIFY(stage->window()->isFullScreen());
    takeShot(*stage->window(), "full-screen");
    press(QStringLiteral("Escape"));
    QTRY_VERIFY(!stage->window()->isFullScreen());
    QTRY_VERIFY(window->isActiveWindow());
}

void DisplayTest::slideIsDragged()
{
    QString error;
    const std::unique_ptr<Message> message =
        readMessage(messages + QStringLiteral("/holiday.mms"), {}, &error);
    QVERIFY2(message, qPrintable(error));
    std::unique_ptr<Editor> begun = Beginnings::editAsNew(*message);
    Editor *editor = begun.get();
    const Shown window(ComposeWindow::open(std::move(begun)));
    const QString first = editor->text(0);
    auto *slides = window->findChild<SlideStrip *>()->findChild<QAbstractItemView *>();
    const auto placeOf = [&](int row) {
        return slides->viewport()->mapToGlobal(
            slides->visualRect(slides->model()->index(row, 0)).center());
    };
    const QPoint beyond = placeOf(1) + (placeOf(1) - placeOf(0)) * 2 / 5;
    drag(placeOf(0), beyond);
    QTRY_COMPARE(editor->text(1), first);
    QCOMPARE(editor->slideCount(), 3);
    takeShot(*window, "writing");
    window->activateWindow();
    press(QStringLiteral("ctrl+z"));
    QTRY_COMPARE(editor->text(0), first);
    editor->setSaved();
}

void DisplayTest::messageIsComposedByKeyboardAlone()
{
    const Shown window(new MainWindow);
    press(QStringLiteral("ctrl+n"));
    QPointer<ComposeWindow> writing;
    QTRY_VERIFY((writing = qobject_cast<ComposeWindow *>(QApplication::activeWindow())));
    type(QStringLiteral("+4915112345678"));
    press(QStringLiteral("alt+u")); // the subject
    type(QStringLiteral("By keys"));
    press(QStringLiteral("alt+t")); // the text of the slide
    type(QStringLiteral("Only keys"));
    press(QStringLiteral("ctrl+Return")); // another slide
    press(QStringLiteral("alt+t"));
    type(QStringLiteral("First"));
    press(QStringLiteral("alt+Up"));
    const QString name = shots + QStringLiteral("/by-keys.mms");
    QFile::remove(name);
    QTimer::singleShot(20'000, this, [] { // so that a dialog that stays open fails the test
        if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
            takeShot(*dialog, "unexpected-dialog");
            dialog->reject();
        }
    });
    // At once, because the dialog has an event loop of its own.
    xdotool({"key", "ctrl+s", "sleep", "2", "key", "ctrl+a", "type", "--args", "1", "--delay", "20",
             name, "key", "Return"});
    QTRY_VERIFY(QFile::exists(name));
    QString error;
    const std::unique_ptr<Message> saved = readMessage(name, {}, &error);
    QVERIFY2(saved && !saved->isRefused(), qPrintable(error));
    QCOMPARE(saved->subject(), QStringLiteral("By keys"));
    QCOMPARE(saved->slides().getTotalSlidesNum(), 2U);
    const MMS_COMP_SMILTimingContainer &slide = *saved->slides().getSlide(0);
    QCOMPARE(saved->text(*slide.getMediaObject(0)->getData()), QStringLiteral("First"));
    press(QStringLiteral("ctrl+w"));
    QTRY_VERIFY(!writing); // saved work needs no question
}

void DisplayTest::dialogsAreComplete()
{
    const Shown window(new MainWindow);
    auto *dialog = new ShortcutsDialog(&*window);
    const Shown shown(dialog, {460, 560});
    takeShot(*dialog, "shortcuts");
}

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], ConvertChild::Argument) == 0)
        return ConvertChild::run(argc - 2, argv + 2);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("qvlmms-gui"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (argc < 4)
        return 2;
    QTranslator texts; // singular and plural
    if (texts.load(QStringLiteral(QVL_TRANSLATIONS "/qvlmms-gui_en")))
        QApplication::installTranslator(&texts);
    messages = QString::fromLocal8Bit(argv[1]);
    media = QString::fromLocal8Bit(argv[2]);
    shots = QString::fromLocal8Bit(argv[3]);
    DisplayTest test;
    QStringList functions{QString::fromLocal8Bit(argv[0])};
    for (int i = 4; i < argc; ++i)
        functions += QString::fromLocal8Bit(argv[i]);
    return QTest::qExec(&test, functions);
}
#include "display_test.moc"
