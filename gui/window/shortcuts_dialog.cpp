#include "window/shortcuts_dialog.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

/// "Save Part" for "&Save Part…".
QString plainText(const QAction &action)
{
    QString text = action.text();
    if (text.endsWith(QChar(0x2026)))
        text.chop(1);
    return text.remove(QLatin1Char('&'));
}

QString keysOf(const QAction &action)
{
    QStringList keys;
    for (const QKeySequence &sequence : action.shortcuts())
        keys += sequence.toString(QKeySequence::NativeText);
    return keys.join(QLatin1StringView(", "));
}

} // namespace

ShortcutsDialog::ShortcutsDialog(QWidget *window) : QDialog(window)
{
    setWindowTitle(tr("Keyboard Shortcuts"));
    auto *list = new QTreeWidget(this);
    list->setAccessibleName(tr("Keyboard shortcuts"));
    list->setHeaderLabels({tr("Action"), tr("Keys")});
    list->setRootIsDecorated(false);
    for (const QAction *action : window->findChildren<QAction *>()) {
        if (!action->shortcuts().isEmpty())
            new QTreeWidgetItem(list, {plainText(*action), keysOf(*action)});
    }
    list->sortItems(0, Qt::AscendingOrder);
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(list);
    layout->addWidget(buttons);
    constexpr QSize Usual(420, 480);
    resize(Usual);
}
