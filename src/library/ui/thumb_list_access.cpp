#include "library/ui/thumb_list_access.h"

#include <unordered_map>

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include "library/ui/thumb_list_widget.h"

namespace pv {
namespace {

/// One file; it stays with its place in the list, whichever name stands there.
class ItemAccess : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  ItemAccess(ThumbListWidget& widget, int index) : widget_(&widget), index_(index) {}

  [[nodiscard]] int index() const { return index_; }
  [[nodiscard]] bool isValid() const override {
    return widget_ && index_ < widget_->list().shownCount();
  }
  [[nodiscard]] QObject* object() const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(widget_);
  }
  [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override {
    return nullptr;
  }
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override {
    return -1;
  }
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  [[nodiscard]] QString text(QAccessible::Text kind) const override {
    return isValid() && kind == QAccessible::Name
               ? QString::fromStdString(
                     widget_->list().shownNames()[static_cast<std::size_t>(index_)])
               : QString();
  }
  [[nodiscard]] QRect rect() const override {
    const QRect cell = isValid() ? widget_->cellRect(index_) : QRect();
    return {isValid() ? widget_->mapToGlobal(cell.topLeft()) : QPoint(), cell.size()};
  }
  [[nodiscard]] QAccessible::State state() const override {
    QAccessible::State state;
    state.invalid = !isValid();
    if (isValid()) {
      state.selectable = state.focusable = true;
      state.selected = widget_->list().selected() == index_;
      state.focused = state.selected && widget_->hasFocus();
      state.offscreen = !widget_->rect().intersects(widget_->cellRect(index_));
    }
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  [[nodiscard]] QStringList actionNames() const override { return {setFocusAction()}; }
  void doAction(const QString& name) override {
    if (isValid() && name == setFocusAction()) {
      widget_->setFocus();
      widget_->moveSelection(index_);
    }
  }
  [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override {
    return {};
  }

 private:
  QPointer<ThumbListWidget> widget_;
  int index_ = 0;
};

class ListAccess : public QAccessibleWidget {
 public:
  explicit ListAccess(ThumbListWidget& widget)
      : QAccessibleWidget(&widget, QAccessible::List), widget_(widget) {}
  ~ListAccess() override {
    for (const auto& [index, id] : items_) {
      QAccessible::deleteAccessibleInterface(id);
    }
  }
  Q_DISABLE_COPY_MOVE(ListAccess)

  [[nodiscard]] int childCount() const override { return widget_.list().shownCount(); }
  [[nodiscard]] QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) {
      return nullptr;
    }
    const auto [at, fresh] = items_.try_emplace(index);
    if (fresh) {
      // The toolkit owns it until it is told to delete it.
      auto* item = new ItemAccess(widget_, index);
      // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
      at->second = QAccessible::registerAccessibleInterface(item);
    }
    return QAccessible::accessibleInterface(at->second);
  }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* item = dynamic_cast<const ItemAccess*>(child);
    return item != nullptr ? item->index() : -1;
  }
  [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
    return child(widget_.itemAt(widget_.mapFromGlobal(QPoint(x, y))));
  }
  [[nodiscard]] QAccessibleInterface* focusChild() const override {
    return widget_.hasFocus() ? child(widget_.list().selected()) : nullptr;
  }

 private:
  ThumbListWidget& widget_;
  mutable std::unordered_map<int, QAccessible::Id> items_;  ///< those that were asked for
};

QAccessibleInterface* makeAccess(const QString& /*className*/, QObject* object) {
  auto* widget = qobject_cast<ThumbListWidget*>(object);
  return widget != nullptr ? new ListAccess(*widget) : nullptr;
}

}  // namespace

void installThumbListAccess() {
  QAccessible::installFactory(makeAccess);
}

}  // namespace pv
