// An empty window of the toolkit: the floor of the start.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.resize(800, 800);
  window.show();
  return QApplication::exec();
}
