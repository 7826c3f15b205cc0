#pragma once

#include <QEvent>
#include <QObject>

namespace pv {

/// Counts how often a widget is painted while the counter lives.
struct PaintCounter : QObject {
  explicit PaintCounter(QObject& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    paints += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int paints = 0;
};

}  // namespace pv
