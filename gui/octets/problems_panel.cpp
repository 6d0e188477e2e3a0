#include "octets/problems_panel.h"

#include "check/findings.h"
#include "view/findings_view.h"
#include "view/terminal_text.h"

#include <QListWidget>
#include <QStyle>
#include <QVBoxLayout>

namespace {

enum Role : int { OctetRole = Qt::UserRole, LineRole };

QStyle::StandardPixmap iconOf(Check::Severity severity)
{
    switch (severity) {
    case Check::Severity::Error:
        return QStyle::SP_MessageBoxCritical;
    case Check::Severity::Warning:
        return QStyle::SP_MessageBoxWarning;
    case Check::Severity::Note:
        break;
    }
    return QStyle::SP_MessageBoxInformation;
}

QString severityText(Check::Severity severity)
{
    switch (severity) {
    case Check::Severity::Error:
        return ProblemsPanel::tr("Error");
    case Check::Severity::Warning:
        return ProblemsPanel::tr("Warning");
    case Check::Severity::Note:
        break;
    }
    return ProblemsPanel::tr("Note");
}

} // namespace

ProblemsPanel::ProblemsPanel(QWidget *parent) : QWidget(parent), m_list(new QListWidget(this))
{
    m_list->setAccessibleName(tr("Problems"));
    m_list->setWordWrap(true);
    m_list->setSpacing(2);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusProxy(m_list);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_list);
    connect(m_list, &QListWidget::currentRowChanged, this, &ProblemsPanel::choose);
    connect(m_list, &QListWidget::itemActivated, this, &ProblemsPanel::showPlace);
    connect(m_list, &QListWidget::itemClicked, this, &ProblemsPanel::showPlace);
}

void ProblemsPanel::setFindings(const Check::Findings &findings)
{
    m_list->clear();
    for (const Check::Finding &finding : findings.inOrder()) {
        const QString text =
            severityText(finding.severity()) + QLatin1StringView(": ") + sentenceOf(finding);
        auto *item = new QListWidgetItem(style()->standardIcon(iconOf(finding.severity())),
                                         TerminalText::visible(text), m_list);
        item->setData(OctetRole, finding.place.octet);
        item->setData(LineRole, finding.place.line);
    }
    for (const QString &line : notKeptLines(findings))
        m_list->addItem(TerminalText::visible(line));
    if (m_list->count() == 0)
        m_list->addItem(tr("No problems were found."));
}

void ProblemsPanel::clear()
{
    m_list->clear();
}

void ProblemsPanel::showPlace()
{
    choose();
    const QListWidgetItem *item = m_list->currentItem();
    if (!item)
        return;
    if (item->data(LineRole).toInt() > 0)
        emit lineWanted();
    else if (const QVariant octet = item->data(OctetRole); octet.isValid() && octet.toInt() >= 0)
        emit octetWanted();
}

void ProblemsPanel::choose()
{
    const QListWidgetItem *item = m_list->currentItem();
    if (!item)
        return;
    const QVariant octet = item->data(OctetRole);
    if (octet.isValid() && octet.toLongLong() >= 0)
        emit octetChosen(octet.toLongLong());
    if (const int line = item->data(LineRole).toInt(); line > 0)
        emit lineChosen(line);
}
