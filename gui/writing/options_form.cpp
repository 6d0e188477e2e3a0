#include "writing/options_form.h"

#include "edit/editor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>
#include <array>

namespace {

constexpr int Day = 24 * 60 * 60; // seconds
constexpr int MostDays = 365;
constexpr std::array priorities{QvlPriority::Low, QvlPriority::Normal, QvlPriority::High};

bool has(const EditedHeader &header, unsigned char code)
{
    return (header.fieldsPresent & headerFieldMask(code)) != 0;
}

} // namespace

OptionsForm::OptionsForm(Editor *editor, QWidget *parent)
    : QWidget(parent), m_editor(editor), m_priority(new QComboBox(this)),
      m_deliveryReport(new QCheckBox(tr("De&livery report"), this)),
      m_readReport(new QCheckBox(tr("&Read report"), this)),
      m_expires(new QCheckBox(tr("E&xpires after"), this)), m_days(new QSpinBox(this)),
      m_isLater(new QCheckBox(tr("Deli&ver at"), this)), m_time(new QDateTimeEdit(this))
{
    auto *layout = new QFormLayout(this);
    layout->setContentsMargins({});
    addPriority(layout);
    addReports(layout);
    addExpiry(layout);
    addDeliveryTime(layout);
    connect(editor, &Editor::changed, this, &OptionsForm::follow);
    follow();
}

void OptionsForm::addPriority(QFormLayout *layout)
{
    m_priority->addItems({tr("Low"), tr("Normal"), tr("High")});
    m_priority->setAccessibleName(tr("Priority"));
    layout->addRow(tr("Priorit&y:"), m_priority);
    connect(m_priority, &QComboBox::activated, this,
            [this](int index) { m_editor->setPriority(priorities[std::size_t(index)]); });
}

void OptionsForm::addReports(QFormLayout *layout)
{
    auto *row = new QHBoxLayout;
    row->addWidget(m_deliveryReport);
    row->addWidget(m_readReport);
    row->addStretch();
    layout->addRow(tr("Reports:"), row);
    connect(m_deliveryReport, &QCheckBox::clicked, m_editor, &Editor::setDeliveryReport);
    connect(m_readReport, &QCheckBox::clicked, m_editor, &Editor::setReadReport);
}

void OptionsForm::addExpiry(QFormLayout *layout)
{
    m_days->setKeyboardTracking(false); // a value is one step, when it is complete
    m_days->setRange(1, MostDays);
    m_days->setAccessibleName(tr("Days until the message expires"));
    layout->addRow(m_expires, m_days);
    connect(m_expires, &QCheckBox::clicked, this, &OptionsForm::applyExpiry);
    connect(m_days, &QSpinBox::valueChanged, this, &OptionsForm::applyExpiry);
    showUnit();
}

void OptionsForm::addDeliveryTime(QFormLayout *layout)
{
    m_time->setKeyboardTracking(false);
    m_time->setCalendarPopup(true);
    m_time->setAccessibleName(tr("Delivery time"));
    layout->addRow(m_isLater, m_time);
    connect(m_isLater, &QCheckBox::clicked, this, &OptionsForm::applyDeliveryTime);
    connect(m_time, &QDateTimeEdit::dateTimeChanged, this, &OptionsForm::applyDeliveryTime);
}

void OptionsForm::applyExpiry()
{
    m_editor->setExpiry(m_expires->isChecked() ? std::optional(m_days->value() * Day)
                                               : std::nullopt);
}

void OptionsForm::showUnit()
{
    m_days->setSuffix(tr(" day(s)", nullptr, m_days->value()));
}

void OptionsForm::applyDeliveryTime()
{
    m_editor->setDeliveryTime(m_isLater->isChecked() ? std::optional(m_time->dateTime())
                                                     : std::nullopt);
}

void OptionsForm::follow()
{
    const QSignalBlocker days(m_days);
    const QSignalBlocker time(m_time);
    const EditedHeader &header = *m_editor->state().header;
    const auto priority = std::ranges::find(priorities, header.priority);
    const bool hasPriority = has(header, HeaderFieldCode::Priority) && priority != priorities.end();
    m_priority->setCurrentIndex(hasPriority ? int(priority - priorities.begin()) : 1);
    m_deliveryReport->setChecked(has(header, HeaderFieldCode::DeliveryReport)
                                 && header.deliveryReport);
    m_readReport->setChecked(has(header, HeaderFieldCode::ReadReply) && header.readReply);
    const bool expires = has(header, HeaderFieldCode::Expiry);
    m_expires->setChecked(expires);
    m_days->setEnabled(expires);
    if (expires)
        m_days->setValue(std::max(1, header.expiry / Day + (header.expiry % Day > 0)));
    showUnit();
    const bool isLater = has(header, HeaderFieldCode::DeliveryTime);
    m_isLater->setChecked(isLater);
    m_time->setEnabled(isLater);
    m_time->setDateTime(isLater ? header.deliveryTime.toLocalTime()
                                : QDateTime::currentDateTime().addDays(1));
}
