#include "window/settings_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QSettings>

namespace {

constexpr QLatin1StringView OwnAddress("message/ownAddress");

} // namespace

QString SettingsDialog::ownAddress()
{
    return QSettings().value(OwnAddress).toString();
}

SettingsDialog::SettingsDialog(QWidget *parent)
    : QDialog(parent), m_ownAddress(new QLineEdit(ownAddress(), this))
{
    setWindowTitle(tr("Settings"));
    m_ownAddress->setPlaceholderText(tr("Phone number or e-mail address"));
    m_ownAddress->setToolTip(tr("“Reply to All” leaves this address out."));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QFormLayout(this);
    layout->addRow(tr("Your &address:"), m_ownAddress);
    layout->addRow(buttons);
}

void SettingsDialog::accept()
{
    QSettings().setValue(OwnAddress, m_ownAddress->text().trimmed());
    QDialog::accept();
}
