/*
 * The attachments of the message that is written.
 */
#pragma once

#include "writing/questions.h"

#include <QWidget>

class Editor;
class QListWidget;
class QPushButton;

class AttachmentsList : public QWidget
{
    Q_OBJECT

public:
    /// @p editor must exist as long as the list.
    AttachmentsList(Editor *editor, Questions questions, QWidget *parent = nullptr);

    /// Attaches the file @p fileName.
    void attach(const QString &fileName);

signals:
    /// Something was not possible.
    void refused(const QString &why);

private:
    void follow();

    Editor *m_editor;
    Questions m_questions;
    QListWidget *m_list;
    QPushButton *m_remove;
};
