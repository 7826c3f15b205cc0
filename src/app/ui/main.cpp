#include <cstdio>
#include <cstdlib>

#include <QApplication>

#include "app/ui/arguments.h"
#include "app/ui/shape_window.h"
#include "app/ui/window_style.h"

namespace {

// Without a usable display the toolkit aborts, which would leave a core dump
// where a person expects a sentence.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*where*/,
                       const QString& message) {
  if (type == QtFatalMsg) {
    std::fputs("particle-vortex: no window can be opened on this display\n", stderr);
    std::_Exit(EXIT_FAILURE);
  }
  std::fprintf(stderr, "%s\n", qPrintable(message));
}

}  // namespace

int main(int argc, char** argv) {
  const auto parsed = pv::parseArguments(argc, argv);
  if (const int* status = std::get_if<int>(&parsed)) {
    return *status;
  }
  if (!pv::hasDisplay()) {
    std::fputs("particle-vortex: there is no display to open a window on\n", stderr);
    return EXIT_FAILURE;
  }

  const auto defaultHandler = qInstallMessageHandler(endWithoutDisplay);
  const QApplication app(argc, argv);
  qInstallMessageHandler(defaultHandler);

  QCoreApplication::setApplicationName("Particle Vortex");
  QCoreApplication::setApplicationVersion(PV_VERSION);
  pv::applyDarkStyle();

  const auto& arguments = std::get<pv::Arguments>(parsed);
  pv::ShapeWindow window(QString::fromLocal8Bit(arguments.root));
  if (!arguments.file.empty()) {
    window.openFile(QString::fromLocal8Bit(arguments.file));
  }
  window.show();
  return QCoreApplication::exec();
}
