#include <cstdio>
#include <cstdlib>
#include <future>
#include <initializer_list>

#include <QApplication>
#include <QIcon>
#include <QImageReader>
#include <QPixmap>

#include "app/application_folder.h"
#include "app/ui/arguments.h"
#include "app/ui/main_dialog.h"
#include "app/ui/title_bars.h"
#include "app/ui/window_style.h"
#include "util/instance_lock.h"
#include "util/module_name.h"
#include "util/program_arguments.h"
#include "util/user_folders.h"
#include "util/user_registry.h"

#ifdef __linux__
// Of the library that the toolkit finds its fonts with.
extern "C" [[gnu::weak]] int FcInit();
#endif

namespace {

// Reads the machine's settings for fonts while the toolkit connects to the display;
// its first text would wait for them.
void readFontSettings() {
#ifdef __linux__
  if (FcInit != nullptr) {
    FcInit();
  }
#endif
}

constexpr const char* kInstanceName = "TESTAPP_MUTEX_NAME";

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

QIcon windowIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    QImageReader reader(QString(":/particle-vortex-%1.png").arg(size), "png");
    reader.setAutoDetectImageFormat(false);  // which would load every picture plug-in
    icon.addPixmap(QPixmap::fromImage(reader.read()));
  }
  return icon;
}

}  // namespace

int main(int argc, char** argv) {
  const auto parsed = pv::parseArguments(pv::programArguments(argc, argv));
  const auto* arguments = std::get_if<pv::Arguments>(&parsed);
  if (arguments == nullptr) {
    return *std::get_if<int>(&parsed);
  }
  // A second copy ends without a word.
  const pv::InstanceLock lock(pv::userRuntimeFolder(), kInstanceName);
  if (!lock.first()) {
    return EXIT_SUCCESS;
  }
  if (!pv::hasDisplay()) {
    std::fputs("particle-vortex: there is no display to open a window on\n", stderr);
    return EXIT_FAILURE;
  }

  const auto fonts = std::async(std::launch::async, readFontSettings);
  const auto defaultHandler = qInstallMessageHandler(endWithoutDisplay);
  const QApplication app(argc, argv);
  qInstallMessageHandler(defaultHandler);

  QCoreApplication::setApplicationName("Particle Vortex");
  QCoreApplication::setApplicationVersion(PV_VERSION);
  pv::applyDarkStyle();
  pv::darkenTitleBars();

  const auto module = pv::moduleName();
  const std::string folder = arguments->root.empty() ? pv::applicationFolder(module)
                                                     : pv::applicationFolderAt(arguments->root);
  pv::makeLibraryFolders(folder);
  pv::UserRegistry registry(pv::userConfigFolder());
  pv::MainDialog dialog({folder, pv::helpPath(module)}, registry);
  if (!arguments->file.empty()) {
    dialog.openFile(arguments->file);
  }
  QObject::connect(&dialog, &pv::MainDialog::pictureShown,
                   [] { QApplication::setWindowIcon(windowIcon()); });
  QObject::connect(&app, &QGuiApplication::commitDataRequest, &dialog,
                   [&dialog] { dialog.writeSettings(); });
  dialog.show();
  return QCoreApplication::exec();
}
