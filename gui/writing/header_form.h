/*
 * Recipients and subject of the message that is written.
 */
#pragma once

#include "edit/header_fields.h"

#include <QWidget>

#include <vector>

class Editor;
class QLabel;
class QLineEdit;

class HeaderForm : public QWidget
{
    Q_OBJECT

public:
    /// @p editor must exist as long as the form.
    explicit HeaderForm(Editor *editor, QWidget *parent = nullptr);

    /// Puts what is typed, and not yet accepted, into the message. False, with the focus in its
    /// field, if it is not valid.
    bool commit();
    /// Whether the message has what all lines say.
    bool isAccepted() const;

private:
    struct Field
    {
        QLineEdit *line;
        QLabel *problem; ///< why the line is not accepted
        Recipients kind;
        bool isAccepted = true; ///< the message has what the line says
        QStringList known = {}; ///< addresses of the message when the line was set or accepted last
    };

    void addRecipients(const QString &title, Recipients kind);
    void addSubject();
    QString apply(Field *field);
    void follow();

    Editor *m_editor;
    std::vector<Field> m_recipients;
    QLineEdit *m_subject = nullptr;
    QLabel *m_subjectProblem = nullptr;
};
