#pragma once

#include <QColor>
#include <QFont>

#include "util/colour_scheme.h"

namespace pv {

/// What every control paints itself with. Lengths are in pixels of 96 dpi.
struct Skin {
  QColor dialog;
  QColor panel;
  QColor page;
  QColor title;
  QColor text;
  QColor button;
  QColor selected;
  QFont font;      ///< Verdana where present, otherwise DejaVu Sans
  QFont boldFont;  ///< the same for headers and help titles

  static constexpr int kRhythm = 8;
  static constexpr double kRadius = 2.0;
  static constexpr double kDisabledOpacity = 0.4;
  static constexpr int kHelpDelay = 500;  ///< milliseconds of rest

  /// `colour` as a face under the pointer.
  [[nodiscard]] static QColor hovered(const QColor& colour);
};

/// The font of every skin, also for what paints itself.
[[nodiscard]] QFont skinFont();

[[nodiscard]] Skin skinFrom(const ColourScheme& scheme);

}  // namespace pv
