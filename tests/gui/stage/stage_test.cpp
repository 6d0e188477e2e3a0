/*
 * The stage: drawn slides, animations, zoom, and the panel with its controls.
 */
#include "stage/stage_panel.h"

#include "edit/beginnings.h"
#include "input/message.h"
#include "manual_clock.h"
#include "pictures.h"
#include "stage/animation.h"
#include "stage/stage.h"

#include <QAction>
#include <QDir>
#include <QIcon>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QThreadPool>

class StageTest : public QObject
{
    Q_OBJECT

private slots:
    void slideIsDrawnAtTheWantedScale();
    void smallPictureIsEnlargedByWholeFactors();
    void largePictureFillsItsPlace();
    void hiddenMediaAreNotDrawn();
    void picturesOfVideosReplaceThem();
    void animationShowsEachFrameForItsDelay();
    void animationWithoutEndRepeats();
    void hugeAnimationsAreLeftOut();
    void otherFilesAreNoAnimations();
    void newestRequestIsDrawn();
    void drawerMayGoWhileItDraws();
    void panelWithoutMessageHasNoCommands();
    void keysPlayAndChangeSlides();
    void timeLineCoversAllSlides();
    void zoomChangesTheScale();
    void clipThatIsNotPlayedIsNamed();
    void longTextIsShownWhole();
    void controlsAreVisibleOnADarkPalette();
    void messageIsReplacedWhileItPlays();
    void everyFixtureIsShown();
};

namespace {

/// A message with one slide with a picture of one color.
QByteArray messageWithPicture(QSize size, Qt::GlobalColor color, const QString &text = {},
                              int slides = 1)
{
    const std::unique_ptr<Editor> editor = Beginnings::newMessage();
    const QByteArray octets = coloredPicture(color, size);
    editor->setRecipients(Recipients::To, {QStringLiteral("+491")});
    for (int i = 0; i < slides; ++i) {
        if (i > 0)
            editor->addSlide(i);
        const QString problem =
            editor->addMedia(i, QStringLiteral("p.png"), octets, Editor::Replace);
        if (!problem.isEmpty())
            qFatal("%s", qPrintable(problem));
        if (!text.isEmpty())
            editor->setText(i, text);
        editor->setDuration(i, 1000);
    }
    const Outgoing outgoing = editor->encodeToSave();
    if (!outgoing.problem.isEmpty())
        qFatal("%s", qPrintable(outgoing.problem));
    return outgoing.pdu;
}

DrawnSlide draw(const QByteArray &pdu, const SlideRequest &request)
{
    SlideDrawer drawer(pdu);
    QSignalSpy drawn(&drawer, &SlideDrawer::drawn);
    DrawnSlide result;
    QObject::connect(&drawer, &SlideDrawer::drawn,
                     [&result](const DrawnSlide &slide) { result = slide; });
    drawer.draw(request);
    if (!drawn.wait(10'000))
        qFatal("nothing was drawn");
    return result;
}

SlideRequest requestOf(double scale)
{
    SlideRequest request;
    request.scale = scale;
    return request;
}

/// The smallest rectangle with all pixels of @p color.
QRect areaOf(const QImage &image, const QColor &color)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

// Two frames of one pixel: black for 100 ms, white for 200 ms (GIF89a).
QByteArray twoFrames(bool repeats)
{
    const QByteArray screen = QByteArray::fromHex("47494638396101000100800000000000FFFFFF");
    const QByteArray loop = QByteArray::fromHex("21FF0B4E45545343415045322E300301000000");
    const auto frame = [](int hundredths, const char *data) {
        return QByteArray::fromHex("21F90400") + char(hundredths) + QByteArray::fromHex("000000")
            + QByteArray::fromHex("2C00000000010001000002") + QByteArray::fromHex(data);
    };
    return screen + (repeats ? loop : QByteArray()) + frame(10, "02440100") + frame(20, "024C0100")
        + ';';
}

std::shared_ptr<Message> messageOf(const QByteArray &pdu)
{
    return decodeMessage(pdu);
}

void set(StagePanel *panel, const QByteArray &pdu)
{
    const std::shared_ptr<Message> message = messageOf(pdu);
    panel->setMessage(message, timingOf(*message));
}

QAction *command(const StagePanel &panel, const QString &text)
{
    for (QAction *action : panel.commands()) {
        if (QString(action->text()).remove(u'&') == text)
            return action;
    }
    qFatal("no command %s", qPrintable(text));
}

} // namespace

void StageTest::slideIsDrawnAtTheWantedScale()
{
    const QByteArray pdu = messageWithPicture({10, 10}, Qt::red);
    const DrawnSlide one = draw(pdu, requestOf(1));
    const DrawnSlide two = draw(pdu, requestOf(2.5));
    QCOMPARE(two.image.size(), (QSizeF(one.image.size()) * 2.5).toSize());
    SlideRequest fitting;
    fitting.area = one.image.size() * 3;
    QCOMPARE(draw(pdu, fitting).image.size(), one.image.size() * 3);
}

void StageTest::smallPictureIsEnlargedByWholeFactors()
{
    const QByteArray pdu = messageWithPicture({11, 7}, Qt::red);
    QCOMPARE(areaOf(draw(pdu, requestOf(1)).image, Qt::red).size(), QSize(11, 7));
    QCOMPARE(areaOf(draw(pdu, requestOf(2.9)).image, Qt::red).size(), QSize(22, 14));
    QCOMPARE(areaOf(draw(pdu, requestOf(3)).image, Qt::red).size(), QSize(33, 21));
}

void StageTest::largePictureFillsItsPlace()
{
    const QByteArray pdu = messageWithPicture({800, 400}, Qt::red);
    const QImage image = draw(pdu, requestOf(2)).image;
    QCOMPARE(areaOf(image, Qt::red).width(), image.width());
}

void StageTest::hiddenMediaAreNotDrawn()
{
    SlideRequest request = requestOf(1);
    request.moment.hidden = {0};
    const QImage image = draw(messageWithPicture({10, 10}, Qt::red), request).image;
    QVERIFY(areaOf(image, Qt::red).isEmpty());
}

void StageTest::picturesOfVideosReplaceThem()
{
    SlideRequest request = requestOf(1);
    QImage frame(10, 10, QImage::Format_RGB32);
    frame.fill(Qt::blue);
    request.moment.pictures = {{0, frame}};
    const QImage image = draw(messageWithPicture({10, 10}, Qt::red), request).image;
    QVERIFY(areaOf(image, Qt::red).isEmpty());
    QCOMPARE(areaOf(image, Qt::blue).size(), QSize(10, 10));
}

void StageTest::animationShowsEachFrameForItsDelay()
{
    const Animation animation(twoFrames(false));
    QCOMPARE(animation.count(), std::size_t(2));
    QCOMPARE(animation.indexAt(0), std::size_t(0));
    QCOMPARE(animation.indexAt(99), std::size_t(0));
    QCOMPARE(animation.indexAt(100), std::size_t(1));
    QCOMPARE(animation.indexAt(299), std::size_t(1));
    QCOMPARE(animation.indexAt(5000), std::size_t(1)); // the last one stays
    QCOMPARE(animation.frame(0).pixelColor(0, 0), QColor(Qt::black));
    QCOMPARE(animation.frame(1).pixelColor(0, 0), QColor(Qt::white));
}

void StageTest::animationWithoutEndRepeats()
{
    const Animation animation(twoFrames(true));
    QCOMPARE(animation.indexAt(300), std::size_t(0));
    QCOMPARE(animation.indexAt(30'000 + 150), std::size_t(1));
}

void StageTest::hugeAnimationsAreLeftOut()
{
    QByteArray huge = twoFrames(true);
    huge.replace(6, 4, QByteArray::fromHex("FFFFFFFF"));
    QVERIFY(Animation(huge).isEmpty());
}

void StageTest::otherFilesAreNoAnimations()
{
    QVERIFY(Animation({}).isEmpty());
    QVERIFY(Animation("GIF8").isEmpty());
    QVERIFY(Animation("<svg xmlns='http://www.w3.org/2000/svg'/>").isEmpty());
    QVERIFY(Animation(twoFrames(true).first(40)).isEmpty());
}

void StageTest::newestRequestIsDrawn()
{
    SlideDrawer drawer(messageWithPicture({10, 10}, Qt::red));
    QList<double> scales;
    connect(&drawer, &SlideDrawer::drawn, this,
            [&scales](const DrawnSlide &slide) { scales += slide.scale; });
    for (const double scale : {1.0, 2.0, 3.0, 4.0})
        drawer.draw(requestOf(scale));
    QTRY_VERIFY(!drawer.isBusy());
    QCOMPARE(scales, QList<double>({1.0, 4.0}));
}

void StageTest::drawerMayGoWhileItDraws()
{
    for (int i = 0; i < 20; ++i) {
        SlideDrawer drawer(messageWithPicture({10, 10}, Qt::red));
        drawer.draw(requestOf(8));
    }
    QVERIFY(QThreadPool::globalInstance()->waitForDone(10'000));
}

void StageTest::panelWithoutMessageHasNoCommands()
{
    StagePanel panel;
    for (const QAction *action : panel.commands())
        QVERIFY(!action->isEnabled());
    set(&panel, messageWithPicture({10, 10}, Qt::red, {}, 2));
    QVERIFY(command(panel, QStringLiteral("Play"))->isEnabled());
    QVERIFY(!command(panel, QStringLiteral("Previous Slide"))->isEnabled());
    QVERIFY(command(panel, QStringLiteral("Next Slide"))->isEnabled());
    panel.setMessage(nullptr, {});
    QVERIFY(!command(panel, QStringLiteral("Play"))->isEnabled());
}

void StageTest::keysPlayAndChangeSlides()
{
    StagePanel panel(std::make_unique<ManualClock>(), nullptr);
    panel.show();
    set(&panel, messageWithPicture({10, 10}, Qt::red, {}, 3));
    auto *stage = panel.findChild<Stage *>();
    QTest::keyClick(stage, Qt::Key_Space);
    QVERIFY(panel.isPlaying());
    QTest::keyClick(stage, Qt::Key_Space);
    QVERIFY(!panel.isPlaying());
    QTest::keyClick(stage, Qt::Key_PageDown);
    QTest::keyClick(stage, Qt::Key_Right);
    QCOMPARE(panel.player().slide(), 2);
    QTest::keyClick(stage, Qt::Key_PageUp);
    QCOMPARE(panel.player().slide(), 1);
    panel.setLayoutDirection(Qt::RightToLeft);
    QTest::keyClick(stage, Qt::Key_Left);
    QCOMPARE(panel.player().slide(), 2);
}

void StageTest::timeLineCoversAllSlides()
{
    StagePanel panel;
    set(&panel, messageWithPicture({10, 10}, Qt::red, {}, 3));
    auto *line = panel.findChild<QSlider *>();
    QCOMPARE(line->maximum(), 3000);
    line->setValue(1600);
    QCOMPARE(panel.player().slide(), 1);
    QCOMPARE(panel.player().position(), 600);
    line->setValue(3000);
    QCOMPARE(panel.player().slide(), 2);
    panel.player().seek(2, 250);
    QCOMPARE(line->value(), 2250);
}

void StageTest::zoomChangesTheScale()
{
    StagePanel panel;
    panel.resize(300, 400);
    panel.show();
    set(&panel, messageWithPicture({10, 10}, Qt::red));
    QTRY_VERIFY(!panel.stage().image().isNull() && !panel.isBusy());
    const QSize fitting = panel.stage().image().size();
    QVERIFY(fitting.width() <= panel.stage().area().width());
    command(panel, QStringLiteral("Zoom In"))->trigger();
    QTRY_VERIFY(panel.stage().image().width() > fitting.width());
    command(panel, QStringLiteral("Fit to Window"))->trigger();
    QTRY_COMPARE(panel.stage().image().size(), fitting);
}

void StageTest::clipThatIsNotPlayedIsNamed()
{
    const std::unique_ptr<Editor> editor = Beginnings::newMessage();
    // One note (Standard MIDI Files 1.0).
    const QByteArray melody = QByteArray::fromHex("4D54686400000006000000010060"
                                                  "4D54726B0000000C"
                                                  "00903C4060803C4000FF2F00");
    editor->setRecipients(Recipients::To, {QStringLiteral("+491")});
    QCOMPARE(editor->addMedia(0, QStringLiteral("sound.mid"), melody, Editor::Replace), QString());
    StagePanel panel;
    panel.show();
    set(&panel, editor->encodeToSave().pdu);
    const auto *remarks = panel.findChild<QPlainTextEdit *>();
    QVERIFY(remarks->isVisible());
    QVERIFY2(remarks->toPlainText().contains(QStringLiteral("sound.mid")),
             qPrintable(remarks->toPlainText()));
}

void StageTest::longTextIsShownWhole()
{
    const QString text = QStringLiteral("word ").repeated(500) + QStringLiteral("end");
    StagePanel panel;
    panel.resize(300, 400);
    panel.show();
    set(&panel, messageWithPicture({10, 10}, Qt::red, text));
    const auto *remarks = panel.findChild<QPlainTextEdit *>();
    QTRY_VERIFY(remarks->toPlainText().endsWith(QStringLiteral("end")));
    QVERIFY(remarks->isVisible());
}

void StageTest::controlsAreVisibleOnADarkPalette()
{
    StagePanel panel;
    QPalette dark;
    dark.setColor(QPalette::ButtonText, Qt::white);
    panel.setPalette(dark);
    int icons = 0;
    for (const QAction *command : panel.commands()) {
        if (command->icon().isNull())
            continue;
        const QImage image = command->icon().pixmap(24, 24).toImage();
        ++icons;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                QVERIFY(color.alpha() < 128 || color.lightness() > 200);
            }
        }
    }
    QCOMPARE(icons, 3);
}

void StageTest::messageIsReplacedWhileItPlays()
{
    StagePanel panel;
    panel.show();
    for (int i = 0; i < 10; ++i) {
        set(&panel, messageWithPicture({10, 10}, i % 2 == 0 ? Qt::red : Qt::blue, {}, 2));
        panel.player().play();
        QCoreApplication::processEvents();
    }
    QVERIFY(panel.isPlaying());
    panel.player().pause();
    QTRY_VERIFY(!areaOf(panel.stage().image(), Qt::blue).isEmpty());
    QVERIFY(areaOf(panel.stage().image(), Qt::red).isEmpty());
}

void StageTest::everyFixtureIsShown()
{
    StagePanel panel;
    panel.show();
    int slides = 0;
    for (const char *folder : {"messages", "show"}) {
        const QDir files(QStringLiteral(QVL_FIXTURES "/") + QString::fromLatin1(folder));
        for (const QString &name : files.entryList({QStringLiteral("*.mms")}, QDir::Files)) {
            QString error;
            const std::shared_ptr<Message> message = readMessage(files.filePath(name), {}, &error);
            QVERIFY2(message, qPrintable(error));
            panel.setMessage(message, timingOf(*message));
            for (int i = 0; i < panel.player().slideCount(); ++i, ++slides) {
                panel.player().seek(i, 0);
                QTRY_VERIFY(!panel.isBusy());
                QVERIFY(!panel.stage().image().isNull());
            }
        }
    }
    QVERIFY(slides > 10);
}

QTEST_MAIN(StageTest)
#include "stage_test.moc"
