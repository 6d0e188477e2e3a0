/*
 * What the user can set: the own address.
 */
#pragma once

#include <QDialog>
#include <QString>

class QLineEdit;

class SettingsDialog : public QDialog
{
    Q_OBJECT

public:
    /// The user's phone number or e-mail address, which "Reply to All" leaves out; may be empty.
    static QString ownAddress();

    explicit SettingsDialog(QWidget *parent = nullptr);

    /// Keeps the settings.
    void accept() override;

private:
    QLineEdit *m_ownAddress;
};
