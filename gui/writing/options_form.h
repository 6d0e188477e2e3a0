/*
 * What the sender wants besides: priority, reports, expiry, delivery time.
 */
#pragma once

#include <QWidget>

class Editor;
class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QFormLayout;
class QSpinBox;

class OptionsForm : public QWidget
{
    Q_OBJECT

public:
    /// @p editor must exist as long as the form.
    explicit OptionsForm(Editor *editor, QWidget *parent = nullptr);

private:
    void addPriority(QFormLayout *layout);
    void addReports(QFormLayout *layout);
    void addExpiry(QFormLayout *layout);
    void addDeliveryTime(QFormLayout *layout);
    void applyExpiry();
    void showUnit();
    void applyDeliveryTime();
    void follow();

    Editor *m_editor;
    QComboBox *m_priority;
    QCheckBox *m_deliveryReport;
    QCheckBox *m_readReport;
    QCheckBox *m_expires;
    QSpinBox *m_days;
    QCheckBox *m_isLater;
    QDateTimeEdit *m_time;
};
