/*
 * The stage with its controls: plays the slides of a message.
 */
#pragma once

#include "stage/clock.h"
#include "stage/player.h"
#include "stage/slide_clips.h"
#include "stage/slide_drawer.h"

#include <QIcon>
#include <QList>
#include <QStyle>
#include <QWidget>

#include <memory>

class QAction;
class QBoxLayout;
class QLabel;
class QPlainTextEdit;
class QSlider;
class Stage;
struct Message;

class StagePanel : public QWidget
{
    Q_OBJECT

public:
    explicit StagePanel(QWidget *parent = nullptr);
    /// With another clock, such as one of a test.
    StagePanel(std::unique_ptr<Clock> clock, QWidget *parent);
    ~StagePanel() override;

    /// Shows the first slide of @p message, whose timing is @p timing; nothing for null.
    void setMessage(std::shared_ptr<const Message> message, std::vector<SlideTiming> timing);

    /// Commands for a menu: playing, slides, zoom, full screen.
    const QList<QAction *> &commands() const { return m_commands; }
    Player &player() { return m_player; }
    const Stage &stage() const { return *m_stage; }

    bool isPlaying() const { return m_player.isPlaying(); }
    bool isAtEnd() const { return m_player.isAtEnd(); }
    /// Whether the slide is still being drawn.
    bool isBusy() const { return m_drawer && m_drawer->isBusy(); }

signals:
    /// A line for the status bar.
    void reported(const QString &line);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QAction *addCommand(const QString &text, const QList<QKeySequence> &keys,
                        const std::function<void()> &run);
    QIcon icon(QStyle::StandardPixmap symbol) const;
    void showIcons();
    void makePlaying();
    void makeZoom();
    void makeControls();
    void addButton(QBoxLayout *row, QAction *action);
    void connectPlayer();

    bool pressKey(int key);
    void togglePlaying();
    void setFullScreen(bool isFull);
    void setScale(double scale);
    void zoom(double factor);
    void seek(int milliseconds);

    void showSlide(int slide);
    void follow(int milliseconds);
    void requestDrawing();
    void showDrawn(const DrawnSlide &slide);
    void showRemarks();
    void updateControls();
    void setTiming(std::vector<SlideTiming> timing);
    QSet<int> hiddenObjects() const;

    std::unique_ptr<Clock> m_clock;
    Player m_player;
    SlideClips m_clips;
    std::shared_ptr<const Message> m_message;
    std::vector<SlideTiming> m_timing;
    std::vector<int> m_begins; ///< of the slides on the time line, and the end of the last one
    QSet<int> m_hidden; ///< media objects that were not requested
    bool m_isAnimated = false;
    std::unique_ptr<SlideDrawer> m_drawer;
    double m_scale = 0; ///< drawn pixels for one handset pixel; 0 fits the window
    double m_shownScale = 1;
    QStringList m_longTexts;

    Stage *m_stage;
    QPlainTextEdit *m_remarks;
    QSlider *m_timeLine;
    QLabel *m_position;
    QList<QAction *> m_commands;
    QAction *m_play = nullptr;
    QAction *m_previous = nullptr;
    QAction *m_next = nullptr;
    QIcon m_playIcon;
    QIcon m_pauseIcon;
    QAction *m_fullScreen = nullptr;
};
