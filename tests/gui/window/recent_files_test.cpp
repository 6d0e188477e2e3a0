/*
 * The files and folders that were opened last.
 */
#include "window/recent_files.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

class RecentFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void lastOneIsFirst();
    void nameOccursOnce();
    void olderOnesAreForgotten();
    void relativeNamesBecomeAbsolute();
    void canBeRemovedAndCleared();

private:
    QTemporaryDir m_folder;
    int m_number = 0;

    // A file of its own for each test.
    QString settingsFile() { return m_folder.filePath(QString::number(++m_number)); }
};

void RecentFilesTest::lastOneIsFirst()
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(&settings);
    recent.add("/a");
    recent.add("/b");
    QCOMPARE(recent.names(), QStringList({"/b", "/a"}));
}

void RecentFilesTest::nameOccursOnce()
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(&settings);
    recent.add("/a");
    recent.add("/b");
    recent.add("/c/../a");
    QCOMPARE(recent.names(), QStringList({"/a", "/b"}));
}

void RecentFilesTest::olderOnesAreForgotten()
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(&settings);
    for (int i = 0; i <= RecentFiles::Most; ++i)
        recent.add(QStringLiteral("/%1").arg(i));
    QCOMPARE(recent.names().size(), RecentFiles::Most);
    QVERIFY(!recent.names().contains("/0"));
}

void RecentFilesTest::relativeNamesBecomeAbsolute()
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(&settings);
    recent.add("a.mms");
    QCOMPARE(recent.names().first(), QDir::current().absoluteFilePath("a.mms"));
}

void RecentFilesTest::canBeRemovedAndCleared()
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    RecentFiles recent(&settings);
    recent.add("/a");
    recent.add("/b");
    recent.remove("/a");
    QCOMPARE(recent.names(), QStringList("/b"));
    recent.clear();
    QVERIFY(recent.names().isEmpty());
}

QTEST_GUILESS_MAIN(RecentFilesTest)
#include "recent_files_test.moc"
