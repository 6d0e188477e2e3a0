#include "edit/draft_keeper.h"

#include <QCoreApplication>

SystemDraftTimer::SystemDraftTimer()
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { m_function(); });
}

void SystemDraftTimer::start(int milliseconds, const std::function<void()> &function)
{
    m_function = function;
    m_timer.start(milliseconds);
}

DraftKeeper::DraftKeeper(Editor *editor, std::unique_ptr<MessageDraft> draft,
                         std::unique_ptr<DraftTimer> timer, QObject *parent)
    : QObject(parent), m_editor(editor), m_draft(std::move(draft)), m_timer(std::move(timer))
{
    connect(editor, &Editor::changed, this, &DraftKeeper::update);
    connect(editor, &Editor::saved, this, &DraftKeeper::discard);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &DraftKeeper::flush);
}

void DraftKeeper::update()
{
    if (!m_editor->isModified())
        return discard();
    m_isPending = true;
    m_timer->start(Delay, [this] { flush(); });
}

void DraftKeeper::flush()
{
    m_timer->stop();
    if (!m_isPending)
        return;
    const Outgoing draft = m_editor->encodeDraft();
    QString problem = draft.problem;
    if (problem.isEmpty() && m_draft->write(draft.pdu, &problem)) {
        m_isPending = false;
        return;
    }
    emit failed(problem);
}

void DraftKeeper::discard()
{
    m_timer->stop();
    m_isPending = false;
    if (!m_draft->remove())
        emit failed(tr("%1 cannot be deleted.").arg(m_draft->fileName()));
}
