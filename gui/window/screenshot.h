/*
 * Saves a picture of a window, such as for the documentation of a program without a display.
 */
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class MainWindow;

/// Waits until a window has nothing more to read, saves its picture and ends the event loop: with
/// 0, or with 2 if the picture cannot be written.
class Screenshot : public QObject
{
    Q_OBJECT

public:
    /// @p window must exist as long as the object.
    Screenshot(MainWindow *window, const QString &fileName, QObject *parent = nullptr);

private:
    void takeWhenReady();

    MainWindow *m_window;
    QString m_fileName;
    QTimer m_timer;
    int m_waits = 0;
};
