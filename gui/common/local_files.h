/*
 * Files that are dropped or pasted.
 */
#pragma once

#include <QMimeData>
#include <QStringList>
#include <QUrl>

/// The files of this machine in @p data.
inline QStringList localFiles(const QMimeData &data)
{
    QStringList names;
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            names += url.toLocalFile();
    }
    return names;
}
