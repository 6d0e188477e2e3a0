/*
 * A line above a message that is not in order: that it was refused, what was changed to read it,
 * or how many problems it has.
 */
#pragma once

#include <QFrame>

class QLabel;
struct Message;
namespace Check {
class Findings;
}

class StateBar : public QFrame
{
    Q_OBJECT

public:
    explicit StateBar(QWidget *parent = nullptr);

    /// Describes @p message, or hides the line if there is nothing to say.
    void setMessage(const Message &message, const Check::Findings &findings);

signals:
    /// The user wants to see the problems.
    void problemsWanted();

private:
    QLabel *m_icon;
    QLabel *m_text;
};
