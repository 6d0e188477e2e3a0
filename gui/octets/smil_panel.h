/*
 * The SMIL of a message as its sender wrote it.
 */
#pragma once

#include <QWidget>

class QPlainTextEdit;
struct Message;

class SmilPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SmilPanel(QWidget *parent = nullptr);

    /// Shows the SMIL of @p message, which must exist only during the call; nothing for null.
    void setMessage(const Message *message);
    /// Selects @p line, from 1.
    void markLine(int line);

private:
    QPlainTextEdit *m_text;
};
