#include "writing/header_form.h"

#include "edit/editor.h"
#include "view/terminal_text.h"

#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace {

QStringList addressesIn(const QString &line)
{
    static const QRegularExpression separators(QStringLiteral("[,;\\n]"));
    return line.split(separators, Qt::SkipEmptyParts);
}

QStringList addressesOf(const Editor &editor, Recipients kind)
{
    QStringList addresses;
    MMS_UA_UAMsg &header = const_cast<Editor &>(editor).message().header();
    for (const MMS_UTIL_Entry *entry : HeaderFields::recipients(kind, &header))
        addresses += TerminalText::visible(entry->getAddress());
    return addresses;
}

QStringList trimmed(const QStringList &texts)
{
    QStringList result;
    for (const QString &text : texts) {
        if (!text.trimmed().isEmpty())
            result += text.trimmed();
    }
    return result;
}

QLabel *problemLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->hide();
    return label;
}

void showProblem(QLabel *label, QLineEdit *line, const QString &problem)
{
    label->setText(problem);
    label->setVisible(!problem.isEmpty());
    line->setAccessibleDescription(problem);
}

} // namespace

HeaderForm::HeaderForm(Editor *editor, QWidget *parent) : QWidget(parent), m_editor(editor)
{
    auto *layout = new QFormLayout(this);
    layout->setContentsMargins({});
    addRecipients(tr("T&o:"), Recipients::To);
    addRecipients(tr("&Cc:"), Recipients::Cc);
    addRecipients(tr("&Bcc:"), Recipients::Bcc);
    addSubject();
    setFocusProxy(m_recipients.front().line);
    connect(editor, &Editor::changed, this, &HeaderForm::follow);
    follow();
}

void HeaderForm::addRecipients(const QString &title, Recipients kind)
{
    auto *layout = static_cast<QFormLayout *>(this->layout());
    auto *line = new QLineEdit(this);
    line->setPlaceholderText(tr("Phone numbers and e-mail addresses, with commas between them"));
    layout->addRow(title, line);
    QLabel *problem = problemLabel(this);
    layout->addRow(QString(), problem);
    m_recipients.push_back({line, problem, kind});
    const std::size_t index = m_recipients.size() - 1;
    connect(line, &QLineEdit::textEdited, this, [this, index] {
        // While an address is being typed, its problem is no news.
        Field &field = m_recipients[index];
        if (apply(&field).isEmpty())
            showProblem(field.problem, field.line, {});
    });
    connect(line, &QLineEdit::editingFinished, this, [this, index] {
        Field &field = m_recipients[index];
        showProblem(field.problem, field.line, apply(&field));
        m_editor->endTyping();
    });
}

void HeaderForm::addSubject()
{
    auto *layout = static_cast<QFormLayout *>(this->layout());
    m_subject = new QLineEdit(this);
    m_subjectProblem = problemLabel(this);
    layout->addRow(tr("S&ubject:"), m_subject);
    layout->addRow(QString(), m_subjectProblem);
    connect(m_subject, &QLineEdit::textEdited, this, [this](const QString &text) {
        showProblem(m_subjectProblem, m_subject, m_editor->setSubject(text));
    });
    connect(m_subject, &QLineEdit::editingFinished, m_editor, &Editor::endTyping);
}

QString HeaderForm::apply(Field *field)
{
    const QString problem = m_editor->setRecipients(field->kind, addressesIn(field->line->text()));
    field->isAccepted = problem.isEmpty();
    return problem;
}

bool HeaderForm::commit()
{
    for (Field &field : m_recipients) {
        const QString problem = apply(&field);
        showProblem(field.problem, field.line, problem);
        if (problem.isEmpty())
            continue;
        field.line->setFocus();
        return false;
    }
    return true;
}

bool HeaderForm::isAccepted() const
{
    return std::ranges::all_of(m_recipients, &Field::isAccepted);
}

// Leaves a line alone that means the same. Nothing that was typed is lost, also what the message
// did not accept, unless a step changes the recipients of the line.
void HeaderForm::follow()
{
    for (Field &field : m_recipients) {
        const QStringList addresses = addressesOf(*m_editor, field.kind);
        if (std::exchange(field.known, addresses) == addresses
            || trimmed(addressesIn(field.line->text())) == addresses)
            continue;
        field.isAccepted = true;
        field.line->setText(addresses.join(QLatin1StringView(", ")));
        showProblem(field.problem, field.line, {});
    }
    const QString subject = m_editor->message().subject();
    if (m_subject->text() != subject)
        m_subject->setText(subject);
}
