#pragma once

#include <algorithm>
#include <filesystem>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include <QAbstractButton>
#include <QSignalSpy>
#include <QTest>

#include "ui/skin.h"
#include "ui/ui_context.h"
#include "util/program_path.h"

namespace pv {

inline const std::filesystem::path kArt = std::filesystem::path(PV_SOURCE_DIR) / "art/rendered";

/// A page in a window of its own, with the real images, and its controls by number.
template <typename Page>
struct PageFixture {
  explicit PageFixture(QSize size) {
    page = std::make_unique<Page>(context);
    page->resize(size);
    page->show();
    page->activateWindow();
  }

  template <typename Control = QAbstractButton>
  Control& control(int id) const {
    auto* found = page->template findChild<Control*>(QString::number(id));
    return found != nullptr ? *found : throw std::runtime_error("no control " + std::to_string(id));
  }
  void click(int id) const { QTest::mouseClick(&control(id), Qt::LeftButton); }
  /// The only one of these buttons that is lit, or 0.
  [[nodiscard]] int lit(std::span<const int> ids) const {
    int one = 0;
    for (const int id : ids) {
      if (control(id).isChecked()) {
        one = one == 0 ? id : -1;
      }
    }
    return std::max(one, 0);
  }

  const UiContext context{skinFrom({}), ImageStore(programPath(kArt))};
  std::unique_ptr<Page> page;
};

/// "/bin/program/x.png" is drawn for screens of single, double and triple density.
inline bool isDrawn(std::string_view image) {
  const std::string stem(image.substr(1, image.rfind('.') - 1));
  return exists(kArt / (stem + ".png")) && exists(kArt / (stem + "@2x.png")) &&
         exists(kArt / (stem + "@3x.png"));
}

}  // namespace pv
