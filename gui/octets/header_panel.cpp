#include "octets/header_panel.h"

#include "common/plain_tool_tip.h"
#include "view/terminal_text.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

using TerminalText::visible;

HeaderPanel::HeaderPanel(QWidget *parent) : QWidget(parent), m_fields(new QTreeWidget(this))
{
    m_fields->setAccessibleName(tr("Header"));
    setFocusProxy(m_fields);
    m_fields->setHeaderLabels({tr("Field"), tr("Value")});
    m_fields->setRootIsDecorated(false);
    m_fields->setAlternatingRowColors(true);
    m_fields->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_fields->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_fields->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_fields->header()->setStretchLastSection(false);
    auto *copyAction = new QAction(tr("&Copy"), this);
    copyAction->setShortcut(QKeySequence::Copy);
    copyAction->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAction, &QAction::triggered, this, &HeaderPanel::copy);
    m_fields->addAction(copyAction);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_fields);
}

void HeaderPanel::setLines(const QList<FieldView> &lines)
{
    m_fields->clear();
    for (const FieldView &line : lines) {
        auto *item = new QTreeWidgetItem(m_fields, {visible(line.name), visible(line.text)});
        item->setToolTip(1, plainToolTip(line.text));
    }
}

void HeaderPanel::copy() const
{
    QStringList lines;
    for (int i = 0; i < m_fields->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *item = m_fields->topLevelItem(i);
        if (item->isSelected())
            lines += item->text(0) + QLatin1StringView(": ") + item->text(1);
    }
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}
