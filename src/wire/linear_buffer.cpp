#include "wire/linear_buffer.h"

#include <QtGlobal>

#include <algorithm>
#include <cstring>
#include <limits>

LinearBuffer::LinearBuffer(unsigned char *data, int size) : m_data(data), m_size(std::max(size, 0))
{
}

LinearBuffer LinearBuffer::forReading(const unsigned char *data, int size)
{
    LinearBuffer buffer(const_cast<unsigned char *>(data), size);
    buffer.m_readOnly = true;
    return buffer;
}

void LinearBuffer::zerolize()
{
    if (!m_readOnly && m_size > 0)
        std::memset(m_data, 0, size_t(m_size));
}

bool LinearBuffer::appendData(const unsigned char *octets, int count)
{
    if (m_readOnly || count < 0 || count > m_size - m_position)
        return false;
    if (count > 0)
        std::memcpy(m_data + m_position, octets, size_t(count));
    m_position += count;
    return true;
}

bool LinearBuffer::readData(unsigned char *octets, int count)
{
    const auto view = readView(count);
    if (view && count > 0)
        std::memcpy(octets, view->data(), size_t(count));
    return view.has_value();
}

std::optional<QByteArrayView> LinearBuffer::readView(int count)
{
    if (count < 0 || count > m_size - m_position)
        return std::nullopt;
    const QByteArrayView view(m_data + m_position, count);
    m_position += count;
    return view;
}

QByteArrayView LinearBuffer::readUntilZero()
{
    const auto *start = reinterpret_cast<const char *>(m_data + m_position);
    const size_t length =
        m_readOnly ? qstrnlen(start, size_t(std::max(m_size - m_position, 0))) : std::strlen(start);
    m_position += int(length) + 1;
    return QByteArrayView(start, qsizetype(length));
}

void LinearBuffer::rewind(int count)
{
    const qint64 target = qint64(m_position) - count;
    m_position = int(std::clamp<qint64>(target, 0, std::numeric_limits<int>::max()));
}

void LinearBuffer::forward(int count)
{
    const qint64 target = std::min(qint64(m_position) + count, qint64(m_size) - 1);
    m_position = int(std::max<qint64>(target, 0));
}
