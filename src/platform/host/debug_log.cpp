/*
 * Hexadecimal dump of octets in the debug log: offset, sixteen octets, the same octets as text.
 */
#include "platform/debug_log.h"

#include <QByteArrayView>
#include <QLoggingCategory>
#include <QString>

#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(octetLog, "qvl.platform.octets", QtWarningMsg)

constexpr qsizetype OctetsPerLine = 16;

QString hexColumns(QByteArrayView octets)
{
    QString columns;
    for (qsizetype i = 0; i < OctetsPerLine; ++i) {
        if (i == OctetsPerLine / 2)
            columns += QLatin1Char(' ');
        columns += i < octets.size()
            ? QString::asprintf(" %02x", static_cast<unsigned char>(octets[i]))
            : QStringLiteral("   ");
    }
    return columns;
}

QString printable(QByteArrayView octets)
{
    QString text;
    for (const char octet : octets)
        text += QLatin1Char(octet >= ' ' && octet <= '~' ? octet : '.');
    return text;
}

} // namespace

void MMS_UTIL_Tool::logOut(const char *data, int length)
{
    if (!data || length < 1 || !octetLog().isDebugEnabled())
        return;
    const QByteArrayView octets(data, length);
    for (qsizetype offset = 0; offset < length; offset += OctetsPerLine) {
        const QByteArrayView line =
            octets.sliced(offset, std::min(OctetsPerLine, octets.size() - offset));
        qCDebug(octetLog).noquote()
            << QString::asprintf("%08llx", static_cast<unsigned long long>(offset))
                + QLatin1Char(' ') + hexColumns(line) + QStringLiteral("  |") + printable(line)
                + QLatin1Char('|');
    }
}
