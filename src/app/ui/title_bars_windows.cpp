#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX  // as the toolkit's headers bring it with some compilers
#define NOMINMAX
#endif
#include <dwmapi.h>
#include <windows.h>

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include "app/ui/title_bars.h"

namespace pv {
namespace {

// Its name is missing in older headers of the system.
constexpr DWORD kDarkTitleBar = 20;

/// Catches each window before it is on the screen. Older systems refuse the call.
class TitleBars : public QObject {
 public:
  using QObject::QObject;

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
      const auto* widget = static_cast<QWidget*>(watched);
      if (widget->isWindow()) {
        const BOOL dark = TRUE;
        ::DwmSetWindowAttribute(reinterpret_cast<HWND>(widget->winId()), kDarkTitleBar, &dark,
                                sizeof dark);
      }
    }
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

void darkenTitleBars() {
  if (QGuiApplication::platformName() == "windows") {
    qApp->installEventFilter(new TitleBars(qApp));
  }
}

}  // namespace pv
