#include "list/thumbnails.h"

#include "input/message.h"
#include "render/slide_files.h"

#include <QThread>

#include <algorithm>
#include <new>

Thumbnails::Thumbnails(Draw draw, QObject *parent) : QObject(parent), m_draw(std::move(draw))
{
    m_threads.setMaxThreadCount(QThread::idealThreadCount());
}

Thumbnails::~Thumbnails()
{
    m_waiting.clear();
    m_threads.waitForDone();
}

QImage Thumbnails::drawFirstSlide(const QString &file, const QSize &size)
{
    try {
        QString ignored;
        const std::unique_ptr<Message> message = readMessage(file, {}, &ignored);
        if (!message)
            return {};
        const QImage slide = firstPage(*message, std::max(size.width(), size.height()), {});
        return slide.isNull() ? slide
                              : slide.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    } catch (const std::bad_alloc &) {
        return {};
    }
}

void Thumbnails::want(const QStringList &files)
{
    m_waiting = files;
    beginMore();
}

void Thumbnails::beginMore()
{
    while (!m_waiting.isEmpty() && m_drawing.size() < m_threads.maxThreadCount()) {
        const QString file = m_waiting.takeFirst();
        if (m_drawing.contains(file))
            continue;
        m_drawing += file;
        ++m_begun;
        m_mostAtOnce = std::max(m_mostAtOnce, int(m_drawing.size()));
        m_threads.start([this, file] {
            const QImage image = m_draw(file);
            QMetaObject::invokeMethod(
                this, [this, file, image] { finish(file, image); }, Qt::QueuedConnection);
        });
    }
}

void Thumbnails::finish(const QString &file, const QImage &image)
{
    m_drawing.removeOne(file);
    emit ready(file, image);
    beginMore();
}
