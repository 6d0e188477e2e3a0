/*
 * The problems that the check of a message found.
 */
#pragma once

#include <QWidget>

class QListWidget;
namespace Check {
class Findings;
}

class ProblemsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ProblemsPanel(QWidget *parent = nullptr);

    void setFindings(const Check::Findings &findings);
    /// Shows nothing: there is no message.
    void clear();

signals:
    /// The user chose a problem at @p octet of the file.
    void octetChosen(qsizetype octet);
    /// The user chose a problem at @p line of the SMIL, from 1.
    void lineChosen(int line);
    /// The user wants to see the place of the problem: its octet, or its line.
    void octetWanted();
    void lineWanted();

private:
    void choose();
    void showPlace();

    QListWidget *m_list;
};
