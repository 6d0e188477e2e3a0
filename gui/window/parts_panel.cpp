#include "window/parts_panel.h"

#include "common/plain_box.h"
#include "common/plain_tool_tip.h"
#include "edit/opened_files.h"
#include "extract/extract.h"
#include "input/message.h"
#include "output/write_file.h"
#include "view/terminal_text.h"

#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMimeData>
#include <QToolBar>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace {

using Part = MMS_COMP_SMILMultipartBodypart;
using TerminalText::visible;

QMimeData *copyOf(const Message &message, const Part &part)
{
    auto *copy = new QMimeData;
    const QString type = part.getMimeFormat().toLower();
    if (type.startsWith(QLatin1StringView("text/")))
        copy->setText(message.text(part));
    else
        copy->setData(type, part.getBodyData());
    return copy;
}

} // namespace

PartsPanel::PartsPanel(QWidget *parent) : QWidget(parent), m_list(new QTreeWidget(this))
{
    m_list->setHeaderLabels({tr("Name"), tr("Type"), tr("Octets"), tr("Kind")});
    m_list->setRootIsDecorated(false);
    setFocusProxy(m_list);
    m_list->setAccessibleName(tr("Parts"));
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    addCommand(tr("&Save Part…"), QKeySequence::Save, &PartsPanel::save);
    m_saveAll = addCommand(tr("Save &All Parts…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                           &PartsPanel::saveAll);
    addCommand(tr("&Copy Part"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), &PartsPanel::copy);
    addCommand(tr("&Open Part…"), QKeySequence(Qt::CTRL | Qt::Key_Return), &PartsPanel::open);
    m_list->addActions(m_commands);
    auto *bar = new QToolBar(this);
    bar->addActions(m_commands);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_list);
    layout->addWidget(bar);
    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &PartsPanel::enableCommands);
    connect(m_list, &QTreeWidget::itemActivated, this, &PartsPanel::open);
    enableCommands();
}

QAction *PartsPanel::addCommand(const QString &text, const QKeySequence &keys,
                                void (PartsPanel::*run)())
{
    auto *action = new QAction(text, this);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WindowShortcut);
    connect(action, &QAction::triggered, this, run);
    m_commands += action;
    return action;
}

void PartsPanel::setMessage(std::shared_ptr<Message> message)
{
    m_message = std::move(message);
    m_list->clear();
    for (int i = 0; m_message && i < m_message->parts().getPartCount(); ++i) {
        const Part &part = *m_message->parts().getBodypartByIndex(i);
        auto *item = new QTreeWidgetItem(
            m_list,
            {visible(part.getContentLocation()), visible(part.getMimeFormat()),
             locale().toString(part.getBodyDataLen()),
             part.getDispFileType() == Part::Shown ? tr("shown") : tr("attachment")});
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(0, plainToolTip(part.getContentLocation()));
    }
    enableCommands();
}

int PartsPanel::chosen() const
{
    const QTreeWidgetItem *item = m_list->selectedItems().value(0);
    return item ? m_list->indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(item)) : -1;
}

void PartsPanel::enableCommands()
{
    for (QAction *action : m_commands)
        action->setEnabled(chosen() >= 0);
    m_saveAll->setEnabled(m_list->topLevelItemCount() > 0);
}

void PartsPanel::save()
{
    const int index = chosen();
    if (index < 0)
        return;
    const Part part = *m_message->parts().getBodypartByIndex(index); // a dialog may outlast it
    const QString name = QFileDialog::getSaveFileName(
        this, tr("Save Part"), QDir::home().filePath(partFileName(part, index)));
    if (name.isEmpty())
        return;
    QString error = OpenedFiles::refusal(name);
    if (error.isEmpty() && replaceFile(part.getBodyData(), name, &error))
        emit reported(tr("Saved %1").arg(visible(name)));
    else
        refuse(error);
}

void PartsPanel::saveAll()
{
    const std::shared_ptr<Message> message = m_message; // a dialog may outlast it
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Save All Parts"));
    if (folder.isEmpty())
        return;
    Report report;
    QString error;
    if (extractParts(*message, folder, &report, &error))
        emit reported(tr("Saved %n part(s)", nullptr, int(report.written.size())));
    else
        refuse(error);
}

void PartsPanel::copy()
{
    if (const int index = chosen(); index >= 0)
        QGuiApplication::clipboard()->setMimeData(
            copyOf(*m_message, *m_message->parts().getBodypartByIndex(index)));
}

bool PartsPanel::confirmOpening(const Attachment &attachment)
{
    QMessageBox question(QMessageBox::Question, tr("Open Part"),
                         tr("Open “%1” with another program?").arg(visible(attachment.name)),
                         QMessageBox::Open | QMessageBox::Cancel, this);
    question.setTextFormat(Qt::PlainText);
    question.setInformativeText(tr("By its content it is: %1\nBy its name it is: %2")
                                    .arg(attachment.typeByContent, attachment.typeByName));
    question.setDefaultButton(QMessageBox::Cancel);
    return question.exec() == QMessageBox::Open;
}

void PartsPanel::open()
{
    const int index = chosen();
    if (index < 0)
        return;
    const Part part = *m_message->parts().getBodypartByIndex(index); // a dialog may outlast it
    const Attachment attachment = examineAttachment(part, index);
    if (!attachment.mayBeOpened)
        return refuse(
            tr("“%1” can only be saved: other programs could run it or follow its addresses, or "
               "its type is not known.\nBy its content it is: %2\nBy its name it is: %3")
                .arg(visible(attachment.name), attachment.typeByContent, attachment.typeByName));
    if (!confirmOpening(attachment))
        return;
    QString error;
    const QString path = m_opened.write(part.getBodyData(), attachment.name, &error);
    if (path.isEmpty())
        refuse(error);
    else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        refuse(tr("No program opens “%1”.").arg(visible(attachment.name)));
}

void PartsPanel::refuse(const QString &why)
{
    warn(this, tr("Part"), why);
}
