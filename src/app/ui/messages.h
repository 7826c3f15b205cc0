#pragma once

#include <filesystem>

#include <QString>

class QMimeData;
class QWidget;

namespace pv {

/// The first file on this computer with the suffix (".j3d") among what is dragged,
/// or nothing; nothing for an empty suffix.
[[nodiscard]] std::filesystem::path draggedFile(const QMimeData& data, const QString& suffix);

/// A text as it stands, whatever characters are in it.
void tell(QWidget* parent, const QString& title, const QString& text);

}  // namespace pv
