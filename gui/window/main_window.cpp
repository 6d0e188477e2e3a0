#include "window/main_window.h"

MainWindow::MainWindow() = default;
MainWindow::~MainWindow() = default;
