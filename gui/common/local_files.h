/*
 * Files that are dropped or pasted.
 */
#pragma once

#include <QDropEvent>
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

/// Accepts a copy of the files of this machine. Nothing else is accepted: whoever dragged would
/// delete files that are moved.
inline void acceptFiles(QDropEvent *event)
{
    if (!(event->possibleActions() & Qt::CopyAction) || localFiles(*event->mimeData()).isEmpty())
        return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
}
