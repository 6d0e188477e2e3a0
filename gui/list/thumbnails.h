/*
 * Draws the first slides of messages in threads, for the rows that are visible.
 */
#pragma once

#include <QImage>
#include <QObject>
#include <QSize>
#include <QStringList>
#include <QThreadPool>

#include <functional>

class Thumbnails : public QObject
{
    Q_OBJECT

public:
    /// Draws the first slide of the message in a file; null if there is none.
    using Draw = std::function<QImage(const QString &file)>;

    /// Draws within @p size with the limits of `qvlmms render`.
    static QImage drawFirstSlide(const QString &file, const QSize &size);

    explicit Thumbnails(Draw draw, QObject *parent = nullptr);
    /// Waits for what is being drawn.
    ~Thumbnails() override;

    /// Draws these files, in their order. Those that were wanted before, but are not any more, are
    /// not begun.
    void want(const QStringList &files);

    /// How many were begun, and the most that were drawn at the same time.
    int begun() const { return m_begun; }
    int mostAtOnce() const { return m_mostAtOnce; }

signals:
    void ready(const QString &file, const QImage &image);

private:
    void beginMore();
    void finish(const QString &file, const QImage &image);

    const Draw m_draw;
    QThreadPool m_threads;
    QStringList m_waiting;
    QStringList m_drawing;
    int m_begun = 0;
    int m_mostAtOnce = 0;
};
