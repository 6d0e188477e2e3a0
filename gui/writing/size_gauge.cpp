#include "writing/size_gauge.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>

#include <algorithm>

SizeGauge::SizeGauge(QWidget *parent)
    : QWidget(parent), m_bar(new QProgressBar(this)), m_text(new QLabel(this))
{
    m_bar->setAccessibleName(tr("Size of the message"));
    m_bar->setTextVisible(false);
    m_bar->setMaximumWidth(160);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(m_text);
    layout->addWidget(m_bar);
}

void SizeGauge::setSize(qint64 octets, qint64 limit)
{
    constexpr int Thousandths = 1000;
    m_bar->setMaximum(Thousandths);
    m_bar->setValue(limit > 0 ? int(std::min<qint64>(octets * Thousandths / limit, Thousandths))
                              : Thousandths);
    const QString size = locale().formattedDataSize(octets);
    const QString most = locale().formattedDataSize(limit);
    m_text->setText(octets > limit
                        ? tr("%1 of %2: too large by %3")
                              .arg(size, most, locale().formattedDataSize(octets - limit))
                        : tr("%1 of %2").arg(size, most));
    QFont font = m_text->font();
    font.setBold(octets > limit);
    m_text->setFont(font);
}

QString SizeGauge::text() const
{
    return m_text->text();
}
