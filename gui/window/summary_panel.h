/*
 * A message without slides, such as a notification or a report, as what it is; and a message that
 * was refused, with the reason.
 */
#pragma once

#include "octets/header_lines.h"

#include <QWidget>

class QFormLayout;
class QLabel;
struct Message;

class SummaryPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SummaryPanel(QWidget *parent = nullptr);

    /// Shows what @p message, which must exist only during the call, is, and the first of its
    /// @p header, which headerLines() returned.
    void setMessage(const Message &message, const QList<FieldView> &header);
    /// Shows that a file cannot be read, and why.
    void setError(const QString &error);
    /// Shows what the window is for, before a message was opened.
    void setWelcome();

private:
    void setTexts(const QString &title, const QString &explanation);
    void addRow(const QString &name, const QString &text);

    QLabel *m_title;
    QLabel *m_explanation;
    QFormLayout *m_fields;
};
