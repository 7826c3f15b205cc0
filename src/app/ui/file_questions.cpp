#include "app/ui/file_questions.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

namespace pv {
namespace {

constexpr QLatin1StringView kSuffix(".j3d");

QString filter() {
  return QObject::tr("Shapes (*.j3d)");
}

QString withoutSuffix(const QString& name) {
  return name.endsWith(kSuffix, Qt::CaseInsensitive) ? name.chopped(kSuffix.size()) : name;
}

bool mayReplace(QWidget* parent, const QString& file) {
  if (!QFileInfo::exists(file)) {
    return true;
  }
  QMessageBox question(QMessageBox::Question, QObject::tr("Save 3d Shape"),
                       QObject::tr("\"%1\" exists. Replace it?").arg(QFileInfo(file).fileName()),
                       QMessageBox::Yes | QMessageBox::No, parent);
  question.setTextFormat(Qt::PlainText);
  question.setDefaultButton(QMessageBox::No);
  return question.exec() == QMessageBox::Yes;
}

}  // namespace

QString askShapeToLoad(QWidget* parent, const QString& folder) {
  return QFileDialog::getOpenFileName(parent, QObject::tr("Load 3d Shape"), folder, filter());
}

QString askShapeToSave(QWidget* parent, const QString& folder, const QString& name) {
  QFileDialog dialog(parent, QObject::tr("Save 3d Shape"), folder, filter());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  // The dialog would ask about the name as typed, not about the file that is written.
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.selectFile(name);
  while (dialog.exec() == QDialog::Accepted) {
    QString chosen = withoutSuffix(dialog.selectedFiles().value(0));
    if (mayReplace(parent, chosen + kSuffix)) {
      return chosen;
    }
  }
  return {};
}

QString draggedShape(const QMimeData& data) {
  for (const QUrl& url : data.urls()) {
    QString file = url.toLocalFile();
    if (file.endsWith(kSuffix, Qt::CaseInsensitive)) {
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
