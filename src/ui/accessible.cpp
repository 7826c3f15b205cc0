#include "ui/accessible.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>

#include "ui/controls.h"
#include "ui/image_button.h"
#include "ui/page_strip.h"
#include "ui/spin_combo.h"

namespace pv {
namespace {

/// Image buttons, text buttons and check boxes.
class ButtonAccess : public QAccessibleWidget {
 public:
  ButtonAccess(QAbstractButton& button, QAccessible::Role role)
      : QAccessibleWidget(&button, role), button_(button) {}

  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    const QString text = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && text.isEmpty() ? button_.text() : text;
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button_.isCheckable();
    state.checked = button_.isChecked();
    state.pressed = button_.isDown();
    return state;
  }
  [[nodiscard]] QStringList actionNames() const override {
    const bool enabled = button_.isEnabled();
    return (enabled ? QStringList(action()) : QStringList()) + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& name) override {
    if (name == action() && button_.isEnabled()) {
      button_.click();
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  [[nodiscard]] QString action() const {
    return role() == QAccessible::CheckBox ? toggleAction() : pressAction();
  }

  QAbstractButton& button_;
};

class StripAccess : public QAccessibleWidget {
 public:
  explicit StripAccess(PageStrip& strip)
      : QAccessibleWidget(&strip, QAccessible::Button), strip_(strip) {}

  [[nodiscard]] QStringList actionNames() const override {
    return QStringList{pressAction(), previousPageAction()} + QAccessibleWidget::actionNames();
  }
  void doAction(const QString& name) override {
    const int count = static_cast<int>(strip_.tabs().size());
    if (name == pressAction() && strip_.isEnabled()) {
      emit strip_.nextRequested();
    } else if (name == previousPageAction() && strip_.isEnabled() && count > 0) {
      emit strip_.tabRequested((strip_.current() + count - 1) % count);
    } else {
      QAccessibleWidget::doAction(name);
    }
  }

 private:
  PageStrip& strip_;
};

class ValueAccess : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit ValueAccess(CSpinCombo& control)
      : QAccessibleWidget(&control, QAccessible::Slider), control_(control) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) {
      return static_cast<QAccessibleValueInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
  }
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? QString::number(control_.value())
                                      : QAccessibleWidget::text(kind);
  }
  [[nodiscard]] QVariant currentValue() const override { return control_.value(); }
  void setCurrentValue(const QVariant& value) override {
    if (control_.isEnabled()) {
      control_.moveTo(value.toInt());
    }
  }
  [[nodiscard]] QVariant maximumValue() const override { return control_.high(); }
  [[nodiscard]] QVariant minimumValue() const override { return control_.low(); }
  [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

 private:
  CSpinCombo& control_;
};

QAccessibleInterface* makeAccess(const QString& /*className*/, QObject* object) {
  if (auto* control = qobject_cast<CSpinCombo*>(object)) {
    return new ValueAccess(*control);
  }
  if (auto* strip = qobject_cast<PageStrip*>(object)) {
    return new StripAccess(*strip);
  }
  if (auto* header = qobject_cast<SectionHeader*>(object)) {
    return new QAccessibleWidget(header, QAccessible::Heading);
  }
  if (auto* box = qobject_cast<CheckBox*>(object)) {
    return new ButtonAccess(*box, QAccessible::CheckBox);
  }
  if (qobject_cast<ImageButton*>(object) != nullptr ||
      qobject_cast<TextButton*>(object) != nullptr) {
    return new ButtonAccess(*static_cast<QAbstractButton*>(object), QAccessible::Button);
  }
  return nullptr;
}

}  // namespace

void installAccessibility() {
  QAccessible::installFactory(makeAccess);
}

}  // namespace pv
