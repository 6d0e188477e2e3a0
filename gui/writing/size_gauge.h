/*
 * The size of the message that is written, against the limit.
 */
#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;

class SizeGauge : public QWidget
{
    Q_OBJECT

public:
    explicit SizeGauge(QWidget *parent = nullptr);

    /// Shows @p octets of at most @p limit, and by how much they exceed it.
    void setSize(qint64 octets, qint64 limit);
    QString text() const;

private:
    QProgressBar *m_bar;
    QLabel *m_text;
};
