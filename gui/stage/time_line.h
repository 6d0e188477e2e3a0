/*
 * A slider that goes where it is clicked.
 */
#pragma once

#include <QMouseEvent>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

class TimeLine : public QSlider
{
    Q_OBJECT

public:
    explicit TimeLine(QWidget *parent = nullptr) : QSlider(Qt::Horizontal, parent) { }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const int handle =
            style()
                ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this)
                .width();
        if (event->button() == Qt::LeftButton)
            setValue(QStyle::sliderValueFromPosition(minimum(), maximum(),
                                                     event->position().toPoint().x() - handle / 2,
                                                     width() - handle, option.upsideDown));
        QSlider::mousePressEvent(event); // the handle is there now, and can be dragged
    }
};
