/*
 * Folders for the settings and drafts of a test instead of the user's.
 */
#pragma once

#include <QByteArray>
#include <QTemporaryDir>

/// To be called before the application begins, in initMain().
inline void useFoldersOfTheTest()
{
    static const QTemporaryDir folder;
    for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, folder.filePath(QLatin1StringView(name)).toLocal8Bit());
}
