#include "stage/stage_panel.h"

#include "common/visible_lines.h"
#include "input/message.h"
#include "stage/stage.h"
#include "stage/time_line.h"
#include "view/terminal_text.h"

#include <QAction>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

using TerminalText::visible;

namespace {

constexpr double ZoomStep = 1.25;
constexpr double LeastScale = 0.25;
constexpr double MostScale = 16;
constexpr QSize IconSize(24, 24);
constexpr int IndefiniteShare = 5000; // of the time line, in milliseconds
constexpr int LongestLine = 1 << 30;

/// Such as "1:05".
QString timeText(int milliseconds)
{
    const int seconds = milliseconds / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

QStringList textsOf(const Message &message, int slide)
{
    QStringList texts;
    const MMS_COMP_SMILTimingContainer *shown = message.slides().getSlide(unsigned(slide));
    for (unsigned int i = 0; shown && i < shown->getMediaObjectCount(); ++i) {
        const MMS_COMP_SMILMediaObject &object = *shown->getMediaObject(i);
        if (object.getMediaElementType() == SMIL_MEDIA_TEXT && object.getData())
            texts += message.text(*object.getData());
        else
            texts += object.getAlt().isEmpty() ? object.getSrc() : object.getAlt();
    }
    return texts;
}

} // namespace

StagePanel::StagePanel(QWidget *parent) : StagePanel(std::make_unique<SystemClock>(), parent) { }

StagePanel::StagePanel(std::unique_ptr<Clock> clock, QWidget *parent)
    : QWidget(parent), m_clock(std::move(clock)), m_player(m_clock.get()), m_stage(new Stage(this)),
      m_remarks(new QPlainTextEdit(this)), m_timeLine(new TimeLine(this)),
      m_position(new QLabel(this))
{
    setTiming({});
    makePlaying();
    makeZoom();
    makeControls();
    connectPlayer();
    m_stage->installEventFilter(this);
    connect(m_stage, &Stage::resized, this, &StagePanel::requestDrawing);
    setFocusProxy(m_stage);
    updateControls();
}

StagePanel::~StagePanel() = default;

QAction *StagePanel::addCommand(const QString &text, const QList<QKeySequence> &keys,
                                const std::function<void()> &run)
{
    auto *action = new QAction(text, this);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, run);
    m_commands += action;
    addAction(action);
    return action;
}

void StagePanel::makePlaying()
{
    m_play = addCommand(tr("&Play"), {Qt::Key_F5}, [this] { togglePlaying(); });
    m_previous = addCommand(tr("Pre&vious Slide"), {QKeySequence(Qt::ALT | Qt::Key_PageUp)},
                            [this] { m_player.previous(); });
    m_next = addCommand(tr("Ne&xt Slide"), {QKeySequence(Qt::ALT | Qt::Key_PageDown)},
                        [this] { m_player.next(); });
    showIcons();
}

void StagePanel::makeZoom()
{
    addCommand(tr("Zoom &In"), {QKeySequence(QKeySequence::ZoomIn), Qt::CTRL | Qt::Key_Equal},
               [this] { zoom(ZoomStep); });
    addCommand(tr("Zoom &Out"), {QKeySequence(QKeySequence::ZoomOut)},
               [this] { zoom(1 / ZoomStep); });
    addCommand(tr("&Fit to Window"), {QKeySequence(Qt::CTRL | Qt::Key_0)}, [this] { setScale(0); });
    addCommand(tr("&Handset's Size"), {QKeySequence(Qt::CTRL | Qt::Key_1)},
               [this] { setScale(devicePixelRatioF()); });
    m_fullScreen = addCommand(tr("F&ull Screen"), {QKeySequence(Qt::Key_F11)},
                              [this] { setFullScreen(!isFullScreen()); });
}

void StagePanel::makeControls()
{
    m_timeLine->setAccessibleName(tr("Time line"));
    m_timeLine->setPageStep(1000);
    m_timeLine->setSingleStep(500);
    connect(m_timeLine, &QSlider::valueChanged, this, &StagePanel::seek);
    m_remarks->setReadOnly(true);
    m_remarks->setAccessibleName(tr("Remarks on the slide"));
    m_remarks->setMaximumHeight(fontMetrics().lineSpacing() * 4);
    m_remarks->hide();
    auto *row = new QHBoxLayout;
    constexpr int Margin = 4;
    row->setContentsMargins(Margin, 0, Margin, Margin);
    addButton(row, m_previous);
    addButton(row, m_play);
    addButton(row, m_next);
    row->addWidget(m_timeLine, 1);
    row->addWidget(m_position);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_stage, 1);
    layout->addWidget(m_remarks);
    layout->addLayout(row);
}

void StagePanel::addButton(QBoxLayout *row, QAction *action)
{
    auto *button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setFocusPolicy(Qt::StrongFocus);
    row->addWidget(button);
}

void StagePanel::connectPlayer()
{
    connect(&m_player, &Player::slideChanged, this, &StagePanel::showSlide);
    connect(&m_player, &Player::positionChanged, this, &StagePanel::follow);
    connect(&m_player, &Player::stateChanged, this, [this] {
        follow(m_player.position());
        updateControls();
    });
    connect(&m_player, &Player::ended, this, [this] { emit reported(tr("End of the message")); });
    connect(&m_clips, &SlideClips::picturesChanged, this, &StagePanel::requestDrawing);
    connect(&m_clips, &SlideClips::remarksChanged, this, &StagePanel::showRemarks);
}

void StagePanel::setTiming(std::vector<SlideTiming> timing)
{
    m_timing = std::move(timing);
    m_begins = {0};
    for (const SlideTiming &slide : m_timing) {
        const int length = slide.duration < 0 ? IndefiniteShare : slide.duration;
        m_begins.push_back(m_begins.back() + std::min(length, LongestLine - m_begins.back()));
    }
}

void StagePanel::setMessage(std::shared_ptr<const Message> message, std::vector<SlideTiming> timing)
{
    m_player.pause(); // while its slides are those of the timing
    m_drawer.reset();
    m_message = std::move(message);
    m_stage->setImage({}, m_message ? tr("Drawing the slide…") : QString());
    setTiming(std::move(timing));
    if (m_message) {
        m_drawer = std::make_unique<SlideDrawer>(m_message->octets);
        connect(m_drawer.get(), &SlideDrawer::drawn, this, &StagePanel::showDrawn);
    }
    m_player.setSlides(m_timing);
    updateControls();
}

bool StagePanel::eventFilter(QObject *object, QEvent *event)
{
    return object == m_stage && event->type() == QEvent::KeyPress
        && pressKey(static_cast<QKeyEvent *>(event)->key());
}

// Styles draw these icons in black, which nobody sees on a dark palette.
QIcon StagePanel::icon(QStyle::StandardPixmap symbol) const
{
    QPixmap pixmap = style()->standardIcon(symbol).pixmap(IconSize, devicePixelRatioF());
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), palette().color(QPalette::ButtonText));
    return pixmap;
}

void StagePanel::showIcons()
{
    m_previous->setIcon(icon(QStyle::SP_MediaSkipBackward));
    m_next->setIcon(icon(QStyle::SP_MediaSkipForward));
    m_playIcon = icon(QStyle::SP_MediaPlay);
    m_pauseIcon = icon(QStyle::SP_MediaPause);
}

void StagePanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !m_next)
        return;
    showIcons();
    updateControls();
}

// The full screen is a window of its own. When it is closed, the stage goes back into its place.
void StagePanel::closeEvent(QCloseEvent *event)
{
    if (!isFullScreen())
        return QWidget::closeEvent(event);
    setFullScreen(false);
    event->ignore();
}

void StagePanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && isFullScreen())
        setFullScreen(false);
    else
        QWidget::keyPressEvent(event);
}

// Keys of the stage, besides the shortcuts of the window.
bool StagePanel::pressKey(int key)
{
    const bool isRightToLeft = layoutDirection() == Qt::RightToLeft;
    switch (key) {
    case Qt::Key_Space:
        togglePlaying();
        return true;
    case Qt::Key_PageDown:
        m_player.next();
        return true;
    case Qt::Key_PageUp:
        m_player.previous();
        return true;
    case Qt::Key_Right:
        isRightToLeft ? m_player.previous() : m_player.next();
        return true;
    case Qt::Key_Left:
        isRightToLeft ? m_player.next() : m_player.previous();
        return true;
    default:
        return false;
    }
}

void StagePanel::togglePlaying()
{
    if (m_player.isPlaying())
        m_player.pause();
    else
        m_player.play();
}

void StagePanel::setFullScreen(bool isFull)
{
    if (isFull == isFullScreen())
        return;
    setWindowFlag(Qt::Window, isFull);
    if (isFull)
        showFullScreen();
    else
        showNormal();
    activateWindow();
    m_stage->setFocus();
}

void StagePanel::setScale(double scale)
{
    m_scale = scale;
    requestDrawing();
}

void StagePanel::zoom(double factor)
{
    setScale(std::clamp(m_shownScale * factor, LeastScale, MostScale));
}

// The time line is that of all slides.
void StagePanel::seek(int milliseconds)
{
    const auto after = std::upper_bound(m_begins.begin() + 1, m_begins.end() - 1, milliseconds);
    const int slide = int(after - m_begins.begin()) - 1;
    m_player.seek(slide, milliseconds - m_begins[std::size_t(slide)]);
}

void StagePanel::showSlide(int slide)
{
    const bool hasSlide = m_message && slide < m_player.slideCount();
    m_clips.setSlide(hasSlide ? m_message->slides().getSlide(unsigned(slide)) : nullptr,
                     hasSlide ? m_timing[std::size_t(slide)] : SlideTiming());
    m_longTexts.clear();
    m_isAnimated = false;
    if (hasSlide)
        m_stage->setSlideText(visibleLines(textsOf(*m_message, slide).join(QLatin1Char('\n'))));
    m_clips.jump(m_player.position(), m_player.isPlaying());
    requestDrawing();
    updateControls();
}

void StagePanel::follow(int milliseconds)
{
    m_clips.follow(milliseconds, m_player.isPlaying());
    m_player.setClipsPlaying(m_clips.arePlaying());
    if (m_isAnimated || hiddenObjects() != m_hidden)
        requestDrawing();
    updateControls();
}

void StagePanel::requestDrawing()
{
    if (!m_drawer || m_player.slideCount() == 0)
        return;
    SlideRequest request;
    request.slide = m_player.slide();
    request.milliseconds = m_player.position();
    request.area = m_stage->area();
    request.scale = m_scale;
    request.moment.pictures = m_clips.pictures();
    request.moment.hidden = m_hidden = hiddenObjects();
    m_drawer->draw(request);
}

QSet<int> StagePanel::hiddenObjects() const
{
    QSet<int> hidden;
    if (m_player.slideCount() == 0)
        return hidden;
    const std::vector<MediaSpan> &media = m_timing[std::size_t(m_player.slide())].media;
    const int position = m_player.position();
    for (std::size_t i = 0; i < media.size(); ++i) {
        if (!media[i].contains(position))
            hidden.insert(int(i));
    }
    return hidden;
}

void StagePanel::showDrawn(const DrawnSlide &drawn)
{
    if (drawn.slide != m_player.slide())
        return;
    m_shownScale = drawn.scale;
    m_isAnimated = drawn.isAnimated;
    m_stage->setImage(drawn.image, tr("The slide takes too much time or memory to draw."));
    QStringList texts;
    for (const LongText &text : drawn.longTexts)
        texts += visible(text.name) + QLatin1StringView(": ") + visibleLines(text.text);
    if (texts == m_longTexts)
        return;
    m_longTexts = texts;
    showRemarks();
}

// Below the stage: what cannot be played, and texts that do not fit.
void StagePanel::showRemarks()
{
    const QStringList remarks = m_clips.remarks() + m_longTexts;
    m_remarks->setVisible(!remarks.isEmpty());
    m_remarks->setPlainText(remarks.join(QLatin1Char('\n')));
}

void StagePanel::updateControls()
{
    const int count = m_player.slideCount();
    const bool isPlaying = m_player.isPlaying();
    for (QAction *action : std::as_const(m_commands))
        action->setEnabled(count > 0);
    m_previous->setEnabled(m_player.slide() > 0);
    m_next->setEnabled(count > 0 && !m_player.isAtEnd());
    m_play->setText(isPlaying ? tr("&Pause") : tr("&Play"));
    m_play->setIcon(isPlaying ? m_pauseIcon : m_playIcon);
    m_timeLine->setEnabled(count > 0);
    const QSignalBlocker blocker(m_timeLine);
    m_timeLine->setMaximum(m_begins.back());
    const int duration = m_player.duration();
    const int shown = std::min(m_player.position(), duration < 0 ? IndefiniteShare : duration);
    m_timeLine->setValue(m_begins[std::size_t(m_player.slide())] + shown);
    m_position->setText(count == 0 ? QString()
                                   : tr("Slide %1 of %2, %3 of %4")
                                         .arg(m_player.slide() + 1)
                                         .arg(count)
                                         .arg(timeText(m_player.position()),
                                              duration < 0 ? tr("no end") : timeText(duration)));
}
