#include "app/ui/messages.h"

#include <QFileInfo>
#include <QFont>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

namespace pv {
namespace {

constexpr int kTextSize = 12;  // a little larger than on controls

}  // namespace

std::filesystem::path draggedFile(const QMimeData& data, const QString& suffix) {
  if (suffix.isEmpty()) {
    return {};
  }
  for (const QUrl& url : data.urls()) {
    const QString file = url.toLocalFile();
    if (file.endsWith(suffix, Qt::CaseInsensitive)) {
      return QFileInfo(file).filesystemAbsoluteFilePath().make_preferred();
    }
  }
  return {};
}

void tell(QWidget* parent, const QString& title, const QString& text) {
  QMessageBox box(QMessageBox::Information, title, text, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  QFont font = box.font();
  font.setPixelSize(kTextSize);
  box.setFont(font);
  box.exec();
}

}  // namespace pv
