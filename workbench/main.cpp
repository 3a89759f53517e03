#include <QApplication>

#include "host/DataFolder.h"
#include "workbench/window/MainWindow.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  ostrand::Workbench workbench(ostrand::dataFolder());
  ostrand::MainWindow window(workbench);
  window.show(window.tree().firstPlace());
  window.QWidget::show();
  return application.exec();
}
