#include "edit/editor.h"

#include <QUndoCommand>

namespace {

using Slide = MMS_COMP_SMILTimingContainer;

} // namespace

/// One step: the states before and after it.
class EditStep : public QUndoCommand
{
public:
    EditStep(Editor *editor, const EditedState &before, const QString &name, int field)
        : QUndoCommand(name), m_editor(editor), m_before(before), m_after(editor->state()),
          m_field(field), m_typing(editor->m_typing)
    {
    }

    void undo() override { m_editor->restore(m_before); }

    void redo() override
    {
        if (m_wasDone)
            m_editor->restore(m_after);
        m_wasDone = true;
    }

    int id() const override { return m_field; }

    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *next = static_cast<const EditStep *>(other); // of the same id
        if (next->m_typing != m_typing)
            return false;
        m_after = next->m_after;
        setObsolete(m_after == m_before);
        return true;
    }

private:
    Editor *m_editor;
    EditedState m_before;
    EditedState m_after;
    int m_field; ///< in which was typed; -1 for another step
    int m_typing;
    bool m_wasDone = false;
};

Editor::Editor(std::unique_ptr<Message> message, QObject *parent)
    : QObject(parent), m_message(std::move(message)), m_state(EditedState::of(*m_message))
{
    // Sent when isModified() is up to date, also after a step that joined the last one.
    connect(&m_steps, &QUndoStack::indexChanged, this, &Editor::changed);
}

Editor::~Editor()
{
    m_steps.blockSignals(true); // otherwise it signals that the steps are gone
}

int Editor::slideCount() const
{
    return int(m_message->slides().getTotalSlidesNum());
}

Slide *Editor::slide(int index) const
{
    return index < 0 ? nullptr : m_message->slides().getSlide(unsigned(index));
}

void Editor::setSaved()
{
    m_isRecovered = false;
    endTyping();
    m_steps.setClean();
    emit saved();
}

Outgoing Editor::encodeToSave(const QDateTime &date) const
{
    EditedState state = m_state;
    EditedHeader header = *state.header;
    header.date = date;
    state.header = header;
    return ::encodeToSave(state);
}

qint64 Editor::size() const
{
    if (!m_size)
        m_size = encodedSize(m_state);
    return *m_size;
}

qint64 Editor::sizeLimit()
{
    return qint64(MMS_UTIL_Setting::getMaxiumMOMMSSize()) * 1024;
}

QString Editor::perform(const QString &name, const Change &change, int field)
{
    const EditedState before = m_state;
    const QString problem = change();
    m_state = EditedState::of(*m_message, before);
    if (m_state == before)
        return problem;
    if (!problem.isEmpty()) {
        restore(before);
        emit changed(); // the slides are new ones
        return problem;
    }
    m_size.reset();
    m_steps.push(new EditStep(this, before, name, field));
    return {};
}

QString Editor::changeSlide(int index, const QString &name,
                            const std::function<QString(Slide *)> &change, int field)
{
    Slide *target = slide(index);
    return target ? perform(
               name, [&] { return change(target); }, field)
                  : tr("There is no such slide.");
}

void Editor::restore(const EditedState &state)
{
    state.restore(m_message.get());
    m_state = state;
    m_size.reset();
    endTyping();
}
