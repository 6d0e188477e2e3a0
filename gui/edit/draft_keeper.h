/*
 * Keeps the draft of an editor up to date: writes it some time after the last change, and removes
 * it when there is no unsaved work.
 */
#pragma once

#include "edit/draft.h"
#include "edit/editor.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

/// Calls a function later. Tests have one that does not wait.
class DraftTimer
{
public:
    virtual ~DraftTimer() = default;
    /// Calls @p function after @p milliseconds, instead of what start() was given before.
    virtual void start(int milliseconds, const std::function<void()> &function) = 0;
    /// Calls nothing.
    virtual void stop() = 0;
};

/// Calls in the event loop of the thread.
class SystemDraftTimer : public DraftTimer
{
public:
    SystemDraftTimer();
    void start(int milliseconds, const std::function<void()> &function) override;
    void stop() override { m_timer.stop(); }

private:
    QTimer m_timer;
    std::function<void()> m_function;
};

class DraftKeeper : public QObject
{
    Q_OBJECT

public:
    /// From the last change to the writing.
    static constexpr int Delay = 2000;

    /// @p editor must exist as long as the keeper; @p draft and @p timer are not null.
    DraftKeeper(Editor *editor, std::unique_ptr<MessageDraft> draft,
                std::unique_ptr<DraftTimer> timer, QObject *parent = nullptr);

    const MessageDraft &draft() const { return *m_draft; }
    /// Writes what was not written yet, such as when the window closes.
    void flush();
    /// Removes the draft: the work is saved, or the user does not want it.
    void discard();

signals:
    /// The draft could not be written, for the reason @p problem.
    void failed(const QString &problem);

private:
    void update();

    Editor *m_editor;
    std::unique_ptr<MessageDraft> m_draft;
    std::unique_ptr<DraftTimer> m_timer;
    bool m_isPending = false;
};
