/*
 * Parts that other programs may open, the names and the files that they get.
 */
#include "window/attachment.h"

#include "pictures.h"

#include <qvlsmilparser.h>

#include <QFileInfo>
#include <QTest>

using Part = MMS_COMP_SMILMultipartBodypart;

class AttachmentTest : public QObject
{
    Q_OBJECT

private slots:
    void mayBeOpened_data();
    void mayBeOpened();
    void extensionFitsTheContent();
    void fileIsPrivateAndNotExecutable();
    void filesOfOneNameDoNotReplaceEachOther();
    void filesEndWithTheObject();
};

namespace {

QByteArray clip(const char *name)
{
    QFile file(QStringLiteral(QVL_FIXTURES "/clips/") + QString::fromLatin1(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no fixture");
    return file.readAll();
}

Attachment examined(const QString &location, const QByteArray &octets)
{
    Part part;
    part.setContentLocation(location);
    part.setDispFileName(location);
    part.setBodyData(octets);
    return examineAttachment(part, 0);
}

} // namespace

void AttachmentTest::mayBeOpened_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("octets");
    QTest::addColumn<bool>("isOpened");
    QTest::newRow("a picture") << "a.png" << coloredPicture(Qt::red) << true;
    QTest::newRow("a picture named like a text") << "a.txt" << coloredPicture(Qt::red) << true;
    QTest::newRow("a text") << "a.txt" << QByteArray("Hello") << true;
    QTest::newRow("a page") << "a.html" << QByteArray("<!DOCTYPE html><html></html>") << false;
    QTest::newRow("a page named like a picture")
        << "a.png" << QByteArray("<!DOCTYPE html><html></html>") << false;
    QTest::newRow("a text named like a page") << "a.html" << QByteArray("Hello") << false;
    QTest::newRow("a vector picture")
        << "a.svg" << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\"/>") << false;
    QTest::newRow("a script") << "a.txt" << QByteArray("#!/bin/sh\necho\n") << false;
    QTest::newRow("a text named like a script") << "a.sh" << QByteArray("echo") << false;
    QTest::newRow("a Python script") << "a.py" << QByteArray("print()") << false;
    QTest::newRow("a desktop entry")
        << "a.txt" << QByteArray("[Desktop Entry]\nType=Application\nExec=x\n") << false;
    QTest::newRow("a text named like a desktop entry")
        << "a.desktop" << QByteArray("Hello") << false;
    QTest::newRow("a program") << "a.png"
                               << QByteArray("\x7F"
                                             "ELF\2\1\1\0\0\0\0\0\0\0\0\0\2\0\x3E",
                                             19)
                               << false;
    QTest::newRow("a Windows program") << "a.exe" << QByteArray("MZ\x90\0\3\0\0\0", 8) << false;
    const QByteArray hls = "#EXTM3U\n#EXTINF:10,\nhttp://example.org/a.ts\n";
    QTest::newRow("a playlist") << "a.m3u8" << hls << false;
    QTest::newRow("a playlist named like a sound") << "a.amr" << hls << false;
    QTest::newRow("a playlist before sound") << "a.mp3" << hls + clip("sound.mp3") << false;
    QTest::newRow("a playlist named like a text") << "a.txt" << hls << false;
    QTest::newRow("a list of addresses")
        << "a.pls" << QByteArray("[playlist]\nFile1=http://example.org/a\n") << false;
    QTest::newRow("a shared playlist")
        << "a.xspf"
        << QByteArray("<?xml version=\"1.0\"?><playlist xmlns=\"http://xspf.org/ns/0/\"/>")
        << false;
    QTest::newRow("a stream description")
        << "a.mp4" << QByteArray("<?xml version=\"1.0\"?><MPD xmlns=\"urn:mpeg:dash\"/>") << false;
    QTest::newRow("a PHP script") << "a.txt" << QByteArray("<?php echo 1;") << false;
    QTest::newRow("a text named like a VBScript") << "a.vbs" << QByteArray("x = 1") << false;
    QTest::newRow("a text named like Emacs Lisp") << "a.el" << QByteArray("(x)") << false;
    QTest::newRow("a sound") << "a.amr" << clip("sound.amr") << true;
    QTest::newRow("a sound with frames") << "a.mp3" << clip("sound.mp3") << true;
    QTest::newRow("a video") << "a.3gp" << clip("video.3gp") << true;
    QTest::newRow("a card") << "a.vcf" << QByteArray("BEGIN:VCARD\r\nVERSION:2.1\r\nEND:VCARD\r\n")
                            << true;
    QTest::newRow("a document") << "a.pdf" << QByteArray("%PDF-1.4\n") << true;
    QTest::newRow("unknown octets") << "a.bin" << QByteArray("\1\2\3\4\0\xFF", 6) << false;
}

void AttachmentTest::mayBeOpened()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, octets);
    QTEST(examined(name, octets).mayBeOpened, "isOpened");
}

void AttachmentTest::extensionFitsTheContent()
{
    QCOMPARE(examined("a.jpg", coloredPicture(Qt::red)).name, "a.png");
    QCOMPARE(examined("a.PNG", coloredPicture(Qt::red)).name, "a.PNG");
    QCOMPARE(examined("../../a", coloredPicture(Qt::red)).name, "a.png");
    QCOMPARE(examined(".bashrc", "Hello").name, "bashrc.txt");
    QCOMPARE(examined("a.bat", "dir").name, "a.txt");
    QCOMPARE(examined("a.ps1", "dir").name, "a.txt");
}

void AttachmentTest::fileIsPrivateAndNotExecutable()
{
    OpenedAttachments opened;
    QString error;
    const QFileInfo file(opened.write("Hello", "a.txt", &error));
    QVERIFY2(file.exists(), qPrintable(error));
    QCOMPARE(file.permissions(),
             QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadUser
                 | QFileDevice::WriteUser);
    const auto others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
    QVERIFY(!(QFileInfo(file.path()).permissions() & others)
            || !(QFileInfo(QFileInfo(file.path()).path()).permissions() & others));
}

void AttachmentTest::filesOfOneNameDoNotReplaceEachOther()
{
    OpenedAttachments opened;
    QString error;
    const QString first = opened.write("1", "a.txt", &error);
    const QString second = opened.write("2", "a.txt", &error);
    QVERIFY(first != second);
    QCOMPARE(QFileInfo(second).fileName(), "a.txt");
    QFile file(first);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), "1");
}

void AttachmentTest::filesEndWithTheObject()
{
    QString path;
    {
        OpenedAttachments opened;
        QString error;
        path = opened.write("1", "a.txt", &error);
        QVERIFY(QFileInfo::exists(path));
    }
    QVERIFY(!QFileInfo::exists(path));
}

QTEST_GUILESS_MAIN(AttachmentTest)
#include "attachment_test.moc"
