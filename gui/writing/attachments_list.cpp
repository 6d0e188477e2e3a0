#include "writing/attachments_list.h"

#include "edit/editor.h"
#include "input/files.h"
#include "view/terminal_text.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using TerminalText::visible;

AttachmentsList::AttachmentsList(Editor *editor, Questions questions, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_questions(std::move(questions)),
      m_list(new QListWidget(this)), m_remove(new QPushButton(tr("Remove Attach&ment"), this))
{
    m_list->setAccessibleName(tr("Attachments"));
    m_list->setMaximumHeight(fontMetrics().lineSpacing() * 4);
    auto *add = new QPushButton(tr("&Attach File…"), this);
    connect(add, &QPushButton::clicked, this, [this] {
        for (const QString &name : m_questions.files(this, tr("Attach File"), tr("All files (*)")))
            attach(name);
    });
    connect(m_remove, &QPushButton::clicked, this,
            [this] { m_editor->removeAttachment(m_list->currentRow()); });
    auto *buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(m_remove);
    buttons->addStretch();
    auto *row = new QHBoxLayout;
    row->addWidget(m_list, 1);
    row->addLayout(buttons);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(new QLabel(tr("Attachments:"), this));
    layout->addLayout(row);
    connect(editor, &Editor::changed, this, &AttachmentsList::follow);
    follow();
}

void AttachmentsList::attach(const QString &fileName)
{
    QByteArray octets;
    QString problem;
    if (readFile(fileName, StandardSizeLimit, &octets, &problem))
        problem = m_editor->attach(QFileInfo(fileName).fileName(), octets);
    if (!problem.isEmpty())
        emit refused(visible(problem));
}

void AttachmentsList::follow()
{
    const int row = m_list->currentRow();
    m_list->clear();
    const MMS_COMP_SMILMultipart &parts = m_editor->message().parts();
    for (int i = 0; const MMS_COMP_SMILMultipartBodypart *part = parts.getAttachment(i); ++i)
        m_list->addItem(tr("%1 (%2)").arg(visible(part->getContentLocation()),
                                          locale().formattedDataSize(part->getBodyDataLen())));
    m_list->setCurrentRow(std::min(std::max(row, 0), m_list->count() - 1));
    m_remove->setEnabled(m_list->count() > 0);
}
