#include "app/ui/button_panel.h"

#include <QKeySequence>
#include <QLabel>
#include <QShortcut>

namespace pv {
namespace {

constexpr int kMargin = 8;
constexpr int kPanelWidth = 120;

// The title line bold with the key beside it, the text below as it is broken.
QString tipText(const QString& help, const QKeySequence& key) {
  QString title = help.section('\n', 0, 0);
  title.chop(title.endsWith(':') ? 1 : 0);
  const QString keyText =
      key.isEmpty() ? QString()
                    : "&nbsp; (" + key.toString(QKeySequence::NativeText).toHtmlEscaped() + ")";
  return "<p style='white-space:pre'><b>" + title.toHtmlEscaped() + "</b>" + keyText + "<br>" +
         help.section('\n', 1).toHtmlEscaped().replace('\n', "<br>") + "</p>";
}

}  // namespace

ButtonPanel::ButtonPanel(QWidget* parent) : QWidget(parent), column_(new QVBoxLayout(this)) {
  setObjectName("panel");
  setAttribute(Qt::WA_StyledBackground);
  setFixedWidth(kPanelWidth);
  column_->setContentsMargins(0, 0, 0, kMargin);
  column_->setSpacing(2);
}

void ButtonPanel::addTitle(const QString& text) {
  if (column_->count() > 0) {
    column_->addSpacing(kMargin - column_->spacing());
  }
  auto* title = new QLabel(text);
  title->setObjectName("title");
  column_->addWidget(title);
  column_->addSpacing(2);
}

QPushButton* ButtonPanel::addButton(const ButtonText& text) {
  auto* button = new QPushButton(QString::fromUtf8(text.caption));
  const QString help = QString::fromUtf8(text.help);
  const QKeySequence key(QString::fromLatin1(text.key), QKeySequence::PortableText);
  button->setObjectName(text.name);
  button->setAccessibleName(text.name);
  button->setAccessibleDescription(help.section('\n', 1));
  button->setWhatsThis(help);
  button->setToolTip(tipText(help, key));
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves the focus in the view
  if (!key.isEmpty()) {
    auto* shortcut = new QShortcut(key, button);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
  }
  auto* row = new QHBoxLayout;
  row->setContentsMargins(kMargin, 0, kMargin, 0);
  row->addWidget(button);
  column_->addLayout(row);
  return button;
}

QPushButton* ButtonPanel::addToggle(const ButtonText& text) {
  QPushButton* button = addButton(text);
  button->setCheckable(true);
  return button;
}

}  // namespace pv
