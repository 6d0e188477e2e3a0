/*
 * The parts of a message: to look at, save, copy and open.
 */
#pragma once

#include "window/attachment.h"

#include <QWidget>

#include <memory>

class QAction;
class QTreeWidget;
struct Message;

class PartsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit PartsPanel(QWidget *parent = nullptr);

    /// Shows the parts of @p message; none for null.
    void setMessage(std::shared_ptr<Message> message);

    /// Commands for the chosen part, or for all: save, save all, copy, open.
    QList<QAction *> commands() const { return m_commands; }

signals:
    /// A line for the status bar.
    void reported(const QString &line);

private:
    QAction *addCommand(const QString &text, const QKeySequence &keys, void (PartsPanel::*run)());
    void enableCommands();
    int chosen() const;
    void save();
    void saveAll();
    void copy();
    void open();
    bool confirmOpening(const Attachment &attachment);
    void refuse(const QString &why);

    std::shared_ptr<Message> m_message;
    QTreeWidget *m_list;
    QList<QAction *> m_commands;
    QAction *m_saveAll = nullptr;
    OpenedAttachments m_opened;
};
