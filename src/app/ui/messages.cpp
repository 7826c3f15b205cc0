#include "app/ui/messages.h"

#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

namespace pv {

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
  box.exec();
}

}  // namespace pv
