#include "html/draft.h"

#include "output/octets.h"
#include "output/write_file.h"

#include <QDir>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 Block = 1 << 16;

} // namespace

DraftFile::DraftFile()
{
    if (!m_file.open())
        m_error = errno;
    open(QIODevice::WriteOnly);
}

qint64 DraftFile::writeData(const char *octets, qint64 size)
{
    m_held.append(octets, size);
    m_size += size;
    return m_held.size() < Block || flush() == 0 ? size : -1;
}

int DraftFile::flush()
{
    if (m_error == 0)
        m_error = writeOctets(m_file.handle(), m_held);
    m_held.clear();
    return m_error;
}

int DraftFile::copyTo(int file)
{
    if (!m_file.seek(0))
        return EIO;
    qint64 left = m_size;
    while (left > 0) {
        const QByteArray octets = m_file.read(Block);
        if (octets.isEmpty())
            return EIO;
        if (const int error = writeOctets(file, octets))
            return error;
        left -= octets.size();
    }
    return 0;
}

QString Draft::error()
{
    const int error = m_file.flush();
    return error == 0
        ? QString()
        : cannotWrite(u"a temporary file in "_s + QDir::tempPath(), qt_error_string(error));
}
