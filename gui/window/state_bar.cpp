#include "window/state_bar.h"

#include "check/findings.h"
#include "input/message.h"
#include "view/findings_view.h"
#include "view/terminal_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <algorithm>

namespace {

using TerminalText::visible;

// What refused the message comes before other errors.
QString reasonOf(const Check::Findings &findings)
{
    const std::vector<Check::Finding> all = findings.inOrder();
    for (const Check::Rule rule :
         {Check::Rule::HeaderRefused, Check::Rule::BodyRefused, Check::Rule::SmilRefused}) {
        const auto finding = std::ranges::find(all, rule, &Check::Finding::rule);
        if (finding != all.end())
            return visible(sentenceOf(*finding));
    }
    const auto error = std::ranges::find(all, Check::Severity::Error, &Check::Finding::severity);
    return error == all.end() ? QString() : visible(sentenceOf(*error));
}

QString countsOf(const Check::Findings &findings)
{
    QStringList counts;
    if (const int errors = findings.count(Check::Severity::Error))
        counts += StateBar::tr("%n error(s)", nullptr, errors);
    if (const int warnings = findings.count(Check::Severity::Warning))
        counts += StateBar::tr("%n warning(s)", nullptr, warnings);
    return counts.join(QLatin1StringView(", "));
}

QString sentence(const Message &message, const Check::Findings &findings)
{
    if (message.isRefused()) {
        const QString error = reasonOf(findings);
        return error.isEmpty() ? StateBar::tr("The message is refused.")
                               : StateBar::tr("The message is refused: %1").arg(error);
    }
    QStringList sentences;
    if (message.state() == MessageState::Changed)
        sentences += StateBar::tr("The message was read with %n change(s).", nullptr,
                                  int(message.changes().size()));
    if (const QString counts = countsOf(findings); !counts.isEmpty())
        sentences += StateBar::tr("It has problems: %1.").arg(counts);
    return sentences.join(QLatin1Char(' '));
}

} // namespace

StateBar::StateBar(QWidget *parent)
    : QFrame(parent), m_icon(new QLabel(this)), m_text(new QLabel(this))
{
    setFrameShape(QFrame::StyledPanel);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setAccessibleName(tr("State of the message"));
    auto *button = new QPushButton(tr("Show &Problems"), this);
    connect(button, &QPushButton::clicked, this, &StateBar::problemsWanted);
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_icon);
    layout->addWidget(m_text, 1);
    layout->addWidget(button);
    hide();
}

void StateBar::setMessage(const Message &message, const Check::Findings &findings)
{
    const QString text = sentence(message, findings);
    const bool isSerious = message.isRefused() || findings.count(Check::Severity::Error) > 0;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    const QStyle::StandardPixmap icon =
        isSerious ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    m_icon->setPixmap(style()->standardIcon(icon, nullptr, this).pixmap(size));
    m_text->setText(text);
    setVisible(!text.isEmpty());
}
