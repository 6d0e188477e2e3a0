/*
 * The header of a message: all fields, and what was left out or rewritten to read them.
 */
#pragma once

#include <QWidget>

class QTreeWidget;
struct Message;

class HeaderPanel : public QWidget
{
    Q_OBJECT

public:
    explicit HeaderPanel(QWidget *parent = nullptr);

    /// Shows @p message, which must exist only during the call; nothing for null.
    void setMessage(const Message *message);

private:
    void add(const QString &name, const QString &text);
    void copy() const;

    QTreeWidget *m_fields;
};
