#include "app/ui/messages.h"

#include <QFont>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

namespace pv {
namespace {

constexpr int kTextSize = 12;  // a little larger than on controls

}  // namespace

QString draggedFile(const QMimeData& data, const QString& suffix) {
  if (suffix.isEmpty()) {
    return {};
  }
  for (const QUrl& url : data.urls()) {
    QString file = url.toLocalFile();
    if (file.endsWith(suffix, Qt::CaseInsensitive)) {
      return file;
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
