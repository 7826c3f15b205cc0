// The least that a Qt program can show: a bare window of the designer's size.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  QWidget window;
  window.resize(924, 683);
  window.show();
  return QApplication::exec();
}
