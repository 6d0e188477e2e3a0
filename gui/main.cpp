#include "window/main_window.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("qvlmms-gui"));
    QApplication::setApplicationVersion(QStringLiteral(QVLMMS_VERSION));
    MainWindow window;
    window.show();
    return QApplication::exec();
}
