#include "html/draft.h"

#include "output/octets.h"
#include "output/write_file.h"

#include <QDir>

#include <cerrno>

using namespace Qt::StringLiterals;

Draft::Draft()
{
    m_file.open();
}

QString Draft::error()
{
    const bool isComplete = m_html.isOk() && m_file.isOpen() && m_file.flush();
    return isComplete
        ? QString()
        : cannotWrite(u"a temporary file in "_s + QDir::tempPath(), m_file.errorString());
}

int Draft::writeTo(int file)
{
    constexpr qint64 Block = 1 << 16;
    if (!m_file.seek(0))
        return EIO;
    while (!m_file.atEnd()) {
        const QByteArray octets = m_file.read(Block);
        if (octets.isEmpty())
            return EIO;
        if (const int error = writeOctets(file, octets))
            return error;
    }
    return 0;
}
