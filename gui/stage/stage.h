/*
 * Shows a drawn slide, scaled to the window or magnified.
 */
#pragma once

#include <QAbstractScrollArea>
#include <QImage>

class Stage : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit Stage(QWidget *parent = nullptr);

    /// Shows @p image, whose pixels are those of the screen; nothing for a null image, but
    /// @p remark in its place.
    void setImage(const QImage &image, const QString &remark);
    const QImage &image() const { return m_image; }
    /// What screen readers say of the slide.
    void setSlideText(const QString &text) { setAccessibleDescription(text); }

    /// Pixels of the screen that the slide can have.
    QSize area() const;

signals:
    /// area() has changed.
    void resized();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QSize imageSize() const;
    void updateScrollBars();

    QImage m_image;
    QString m_remark;
};
