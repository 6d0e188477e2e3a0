/*
 * A message without slides, such as a notification or a report, as what it is; and a message that
 * was refused, with the reason.
 */
#pragma once

#include <QWidget>

class QFormLayout;
class QLabel;
struct Message;

class SummaryPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SummaryPanel(QWidget *parent = nullptr);

    /// Shows what @p message, which must exist only during the call, is.
    void setMessage(const Message &message);
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
