#pragma once

#include <QString>

class QMimeData;
class QWidget;

namespace pv {

/// The file that the user picks; empty when the user thinks better of it.
[[nodiscard]] QString askShapeToLoad(QWidget* parent, const QString& folder);

/// The name to save under, without ".j3d". Asks before a file is replaced, with
/// No as the answer of a careless Enter. Empty when nothing is to be saved.
[[nodiscard]] QString askShapeToSave(QWidget* parent, const QString& folder, const QString& name);

/// The first shape file on this computer among what is dragged, or nothing.
[[nodiscard]] QString draggedShape(const QMimeData& data);

/// A text as it stands, whatever characters are in it.
void tell(QWidget* parent, const QString& title, const QString& text);

}  // namespace pv
