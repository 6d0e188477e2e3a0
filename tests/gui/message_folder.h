/*
 * A folder with messages that differ in subject and date.
 */
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class MessageFolder
{
public:
    QString path() const { return m_folder.path(); }
    QString filePath(const QString &name) const { return m_folder.filePath(name); }

    void write(const QString &name, const QByteArray &octets) const
    {
        QFile file(filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(octets) != octets.size())
            qFatal("cannot write %s", qPrintable(name));
    }
    /// A message with the number @p number as its subject, its date in seconds after 2001-09-09,
    /// and the text of its slide. Returns its file name.
    QString add(int number) const
    {
        const QString name = QStringLiteral("%1.mms").arg(number, 5, 10, QLatin1Char('0'));
        write(name, message(number));
        return filePath(name);
    }

    // m-retrieve-conf 1.0 from +491 with one text (OMA-MMS-ENC, 7; WAP-230-WSP, 8.5).
    static QByteArray message(int number)
    {
        const QByteArray digits = QByteArray::number(number).rightJustified(5, '0');
        QByteArray date = QByteArray::number(1'000'000'000 + number, 16);
        return QByteArray::fromHex("8C848D90") // m-retrieve-conf, 1.0
            + QByteArray::fromHex("8504" + date) // Date
            + QByteArray::fromHex("891080") + text("+491/TYPE=PLMN") // From
            + '\x96' + text(digits) // Subject
            + QByteArray::fromHex("84A301") // mixed, one part
            + part("words " + digits);
    }
    /// A part of plain text, named a.txt.
    static QByteArray part(const QByteArray &words)
    {
        const QByteArray headers = QByteArray::fromHex("838E") + text("a.txt");
        return char(headers.size()) + uintvar(words.size()) + headers + words;
    }

private:
    static QByteArray text(const QByteArray &octets) { return octets + '\0'; }
    // Up to 14 bits.
    static QByteArray uintvar(qsizetype number)
    {
        return number < 0x80 ? QByteArray(1, char(number))
                             : QByteArray(1, char(0x80 | number >> 7)) + char(number & 0x7F);
    }

    QTemporaryDir m_folder;
};
