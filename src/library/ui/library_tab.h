#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <QWidget>

#include "ui/ui_context.h"

class QBoxLayout;

namespace pv {

enum class LibraryRow : std::uint8_t { Header, Button, DisabledButton, HiddenButton };

/// A header or a button of the library page. `name` tells equal texts apart for
/// assistive tools; `code` is what a press stores, 0 for headers.
struct LibraryControl {
  int id = 0;
  LibraryRow row = LibraryRow::Header;
  const char* text = nullptr;
  int code = 0;
  const char* image = nullptr;
  const char* name = nullptr;
  const char* help = nullptr;
};

inline constexpr std::size_t kLibraryControlCount = 12;
/// From top to bottom.
extern const std::array<LibraryControl, kLibraryControlCount> kLibraryControls;

/// The way into the libraries: for each kind of saved object a button to load one
/// and a button to edit the tags of all.
class CLibraryTab : public QWidget {
  Q_OBJECT

 public:
  explicit CLibraryTab(const UiContext& context, QWidget* parent = nullptr);

  /// While a press is being told: 1 load a shape, 2 edit the shapes' tags, 3 load a
  /// path, 4 edit the paths' tags, 5 to 8 the same for particles and forces;
  /// otherwise 0.
  [[nodiscard]] int selection() const { return selection_; }

 signals:
  /// A button was pressed.
  void command();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void addHeader(QBoxLayout& column, const LibraryControl& row);
  void addButton(QBoxLayout& column, const LibraryControl& row);
  void press(int code);

  const UiContext& context_;
  int selection_ = 0;
};

}  // namespace pv
