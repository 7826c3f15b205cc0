#include "library/ui/file_name_edit.h"

#include <string>

#include <QKeyEvent>
#include <QValidator>

#include "ui/pixel_painter.h"
#include "util/file_name.h"

namespace pv {
namespace {

/// Cleans whatever the field is given.
class FileNameValidator : public QValidator {
 public:
  explicit FileNameValidator(FileNameEdit& edit) : QValidator(&edit), edit_(edit) {}

  State validate(QString& input, int& cursor) const override {
    const QString clean = fileNameText(input);
    if (clean != input) {
      cursor = static_cast<int>(fileNameText(input.left(cursor)).size());
      input = clean;
      // After the change itself was told, so that what is said about it stays.
      QMetaObject::invokeMethod(&edit_, &FileNameEdit::refused, Qt::QueuedConnection);
    }
    return Acceptable;
  }

 private:
  FileNameEdit& edit_;
};

}  // namespace

const char* const kRefusedText = R"(Not in a name: < > : " / \ | ? *)";

QString fileNameText(const QString& text) {
  std::u32string characters = text.toStdU32String();
  std::erase_if(characters, [](char32_t character) { return !isFileNameCharacter(character); });
  return QString::fromStdU32String(characters);
}

FileNameEdit::FileNameEdit(const UiContext& context, const QString& name, QWidget* parent)
    : EditBox(context, name, parent) {
  setValidator(new FileNameValidator(*this));
}

NameHint::NameHint(const UiContext& context, QWidget* parent)
    : TextLabel(context, QString(), parent) {
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, brightColour(context.skin));
  setPalette(colours);
  setFixedHeight(fontMetrics().height() + 1);
}

// A refused key leaves everything as it is: text, selection and what can be undone.
void FileNameEdit::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  const bool letter = !typed.isEmpty() && typed.front().isPrint();
  if (letter && fileNameText(typed) != typed) {
    event->accept();
    emit refused();
    return;
  }
  EditBox::keyPressEvent(event);
}

}  // namespace pv
