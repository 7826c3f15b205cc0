#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include "ui/ui_context.h"

namespace pv {

/// Popup help: after half a second of rest over a control its help text appears
/// beside the pointer, never under it and never outside the screen; the first
/// line is the bold title. Leaving, pressing or typing takes it away.
///
/// One object serves all controls of a window: attach() puts a control under its
/// watch and gives it the accessible name and description that the text holds.
class CPopup : public QObject {
  Q_OBJECT

 public:
  explicit CPopup(const UiContext& context, QObject* parent = nullptr);
  ~CPopup() override;
  CPopup(const CPopup&) = delete;
  CPopup& operator=(const CPopup&) = delete;
  CPopup(CPopup&&) = delete;
  CPopup& operator=(CPopup&&) = delete;

  /// An empty text takes the control out again.
  void attach(QWidget* control, const QString& help);

  /// "Point Emitter:\nThis is a single point." in its two parts, without colon.
  [[nodiscard]] static QString titleOf(const QString& help);
  [[nodiscard]] static QString textOf(const QString& help);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// The control that a watched object is or is a part of.
  [[nodiscard]] static QWidget* ownerOf(QObject* watched);
  void pointAt(QWidget* control, QPoint pointer);
  void show();
  void hide();

  const UiContext& context_;
  QTimer timer_;
  QPointer<QWidget> control_;
  QPointer<QWidget> bubble_;
  QPoint pointer_;          ///< on the screen
  bool dismissed_ = false;  ///< until the pointer comes anew
};

/// Helps itself to the popup of the control's window, made on first use; every
/// skinned control calls it with its help text.
void setHelp(const UiContext& context, QWidget* control, const QString& help);

}  // namespace pv
