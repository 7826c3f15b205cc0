#pragma once

#include "ui/controls.h"

namespace pv {

/// What the pages say when a character was refused.
inline constexpr const char* kRefusedText = R"(A name cannot hold < > : " / \ | ? * or line ends.)";

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

/// The text without characters that no file name can hold.
[[nodiscard]] QString fileNameText(const QString& text);

}  // namespace pv
