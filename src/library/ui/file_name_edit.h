#pragma once

#include "ui/controls.h"

namespace pv {

/// What the pages say when a character was refused.
extern const char* const kRefusedText;

/// A field for a name that becomes a file's: characters that no file name can hold
/// are refused as they are typed and left out of what is pasted or dropped.
class FileNameEdit : public EditBox {
  Q_OBJECT

 public:
  FileNameEdit(const UiContext& context, const QString& name, QWidget* parent = nullptr);

 signals:
  /// A character was refused or left out.
  void refused();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

/// The line below such a field: what is wrong with the name, as high empty as full.
class NameHint : public TextLabel {
  Q_OBJECT

 public:
  NameHint(const UiContext& context, QWidget* parent = nullptr);
};

/// The text without characters that no file name can hold.
[[nodiscard]] QString fileNameText(const QString& text);

}  // namespace pv
