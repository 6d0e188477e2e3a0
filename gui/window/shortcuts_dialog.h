/*
 * All actions of a window with their keyboard shortcuts.
 */
#pragma once

#include <QDialog>

class ShortcutsDialog : public QDialog
{
    Q_OBJECT

public:
    /// Lists the actions of @p window, not null, which is the dialog's parent.
    explicit ShortcutsDialog(QWidget *window);
};
