// Saving, closing and drafts of the window to write in.
#include "writing/compose_window.h"

#include "check/check.h"
#include "common/local_files.h"
#include "edit/beginnings.h"
#include "edit/opened_files.h"
#include "input/file_name.h"
#include "output/write_file.h"
#include "view/findings_view.h"
#include "view/terminal_text.h"
#include "writing/attachments_list.h"
#include "writing/header_form.h"
#include "writing/slide_form.h"
#include "writing/slide_strip.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QMimeDatabase>

#include <array>

using TerminalText::visible;

namespace {

std::unique_ptr<Editor> editorOf(const QString &draft)
{
    QString error;
    const std::unique_ptr<Message> message = readMessage(draft, {}, &error);
    return message ? Beginnings::resume(*message) : nullptr;
}

bool openDraft(const QString &name, QWidget *parent, const Questions &questions)
{
    std::unique_ptr<MessageDraft> draft = MessageDraft::open(name);
    std::unique_ptr<Editor> editor = draft ? editorOf(name) : nullptr;
    if (!editor) {
        questions.refuse(parent, ComposeWindow::tr("Drafts"),
                         ComposeWindow::tr("%1 cannot be read. It stays where it is.").arg(name));
        return false;
    }
    auto *window = new ComposeWindow(std::move(editor), std::move(draft), questions);
    window->setVisible(true);
    return true;
}

} // namespace

ComposeWindow *ComposeWindow::open(std::unique_ptr<Editor> editor, const Questions &questions)
{
    QString error;
    std::unique_ptr<MessageDraft> draft =
        MessageDraft::create(MessageDraft::standardFolder(), &error);
    auto *window = new ComposeWindow(std::move(editor), std::move(draft), questions);
    window->setVisible(true);
    if (!error.isEmpty())
        window->report(visible(error));
    return window;
}

int ComposeWindow::offerDrafts(QWidget *parent, const Questions &questions)
{
    const QStringList names = MessageDraft::abandoned(MessageDraft::standardFolder());
    if (names.isEmpty())
        return 0;
    const Questions::Answer answer = questions.drafts(parent, int(names.size()));
    int opened = 0;
    for (const QString &name : names) {
        if (answer == Questions::Save)
            opened += openDraft(name, parent, questions);
        else if (const auto draft = MessageDraft::open(name); draft && answer == Questions::Discard)
            draft->remove();
    }
    return opened;
}

bool ComposeWindow::save()
{
    if (!m_header->commit())
        return false;
    return m_fileName.isEmpty() ? saveAs() : write(m_fileName);
}

bool ComposeWindow::saveAs()
{
    if (!m_header->commit())
        return false;
    if (const QString problem = m_editor->encodeToSave().problem; !problem.isEmpty()) {
        m_questions.refuse(this, tr("Save Message"), problem);
        return false;
    }
    const QString name = m_questions.saveAs(this, tr("message.mms"));
    return !name.isEmpty() && write(name);
}

bool ComposeWindow::confirmErrors(const QByteArray &pdu)
{
    const std::unique_ptr<Message> message = decodeMessage(pdu);
    const Check::Findings findings = Check::checkMessage(*message, {});
    QStringList errors;
    for (const Check::Finding &finding : findings.inOrder()) {
        if (finding.severity() == Check::Severity::Error)
            errors += visible(sentenceOf(finding));
    }
    return errors.isEmpty() || m_questions.saveWithErrors(this, errors);
}

bool ComposeWindow::write(const QString &fileName)
{
    const Outgoing outgoing = m_editor->encodeToSave();
    QString problem = outgoing.problem;
    if (problem.isEmpty() && !confirmErrors(outgoing.pdu))
        return false;
    const bool isOwn = fileName == m_fileName;
    if (problem.isEmpty() && !isOwn)
        problem = OpenedFiles::refusal(fileName);
    if (!problem.isEmpty() || !replaceFile(outgoing.pdu, fileName, &problem)) {
        m_questions.refuse(this, tr("Save Message"), problem);
        return false;
    }
    m_fileName = fileName;
    m_editor->setSaved();
    updateTitle();
    report(tr("Saved %1").arg(visible(fileName)));
    emit saved(fileName);
    return true;
}

void ComposeWindow::closeEvent(QCloseEvent *event)
{
    saveLayout();
    if (!m_editor->isModified() && m_header->isAccepted())
        return event->accept();
    if (m_keeper)
        m_keeper->flush(); // the question may stay open for long
    const Questions::Answer answer = m_questions.unsaved(this);
    if (answer == Questions::Discard && m_keeper)
        m_keeper->discard();
    event->setAccepted(answer == Questions::Discard || (answer == Questions::Save && save()));
}

void ComposeWindow::dragEnterEvent(QDragEnterEvent *event)
{
    acceptFiles(event);
}

void ComposeWindow::dropEvent(QDropEvent *event)
{
    acceptFiles(event);
    if (event->isAccepted())
        addFiles(localFiles(*event->mimeData()));
}

// A slide takes one picture or video, and one sound: each further one gets a slide of its own.
// Other files are attached.
void ComposeWindow::addFiles(const QStringList &names)
{
    std::array isTaken{false, false};
    for (const QString &name : names) {
        const QString type = QMimeDatabase().mimeTypeForFile(name).name();
        const bool isSound = type.startsWith(QLatin1StringView("audio/"));
        const bool isMedia = isSound || type.startsWith(QLatin1StringView("image/"))
            || type.startsWith(QLatin1StringView("video/"));
        if (!isMedia) {
            m_attachments->attach(name);
            continue;
        }
        if (isTaken[isSound]) {
            m_slides->addSlide();
            isTaken = {false, false};
        }
        isTaken[isSound] = true;
        m_slide->addFile(m_slides->current(), name);
    }
}
