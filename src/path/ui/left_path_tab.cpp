#include "path/ui/left_path_tab.h"

#include <array>
#include <utility>

#include <QBoxLayout>
#include <QGridLayout>
#include <QPainter>

#include "ui/controls.h"
#include "ui/image_button.h"

namespace pv {
namespace {

// Lengths in pixels of 96 dpi; even, so that edges fall on whole pixels at one
// and a half times the size too.
constexpr int kHeader = 28;
constexpr int kButton = 32;
constexpr int kSmallGap = 4;
constexpr int kGap = Skin::kRhythm;

constexpr int kNoResult = -1;

struct FileButton {
  int id;
  int result;
  const char* text;
  const char* image;
  const char* name;
  const char* help;
};
constexpr std::array<FileButton, 2> kFileButtons{{
    {8031, 1, "Load", "/bin/program/shape-load.png", "Load 2d Path",
     "Load 2d Path:\nThis opens the library of 2d paths\nwhere you can find one and load it."},
    {8033, 2, "Save", "/bin/program/shape-save.png", "Save 2d Path",
     "Save 2d Path:\nThis saves the path into the library of 2d paths."},
}};

struct KeyLine {
  const char* keys;
  const char* meaning;
};
constexpr KeyLine kKeyLines[] = {
    {"Wheel", "zoom at the pointer"},
    {"Middle button", "drag to move the grid"},
    {"Ctrl", "drag to move the grid"},
    {"Arrows", "nudge selected points"},
    {"Ctrl A", "select all points"},
    {"Delete", "delete selected points, with that tool"},
    {"Backspace", "remove the last point while drawing"},
    {"Ctrl Z, Ctrl Y", "undo and redo"},
    {"Esc", "take back a drag"},
    {"Enter", "use the path"},
};

}  // namespace

CLeftPathTab::CLeftPathTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, kGap, 0, 0);
  column->setSpacing(kSmallGap);
  addHeader(*column, tr("Emitter Path"), "/bin/program/library-2d.png");
  for (std::size_t i = 0; i < kFileButtons.size(); ++i) {
    addButton(*column, i);
  }
  column->addSpacing(kGap);
  addHeader(*column, tr("Mouse and Keys"));
  addKeys(*column);
  column->addStretch();
}

void CLeftPathTab::addHeader(QBoxLayout& column, const QString& text, std::string image) {
  auto* header = new SectionHeader(context_, text, this);
  header->setImage(std::move(image));
  header->setFixedHeight(kHeader);
  column.addWidget(header);
}

void CLeftPathTab::addButton(QBoxLayout& column, std::size_t which) {
  const FileButton& row = kFileButtons[which];
  auto* button = new ImageButton(context_, row.image, tr(row.help), this);
  button->setObjectName(QString::number(row.id));
  button->setText(tr(row.text));
  button->setAccessibleName(tr(row.name));
  button->setFixedHeight(kButton);
  connect(button, &ImageButton::clicked, this, [this, result = row.result] {
    result_ = result;
    emit command();
  });
  column.addWidget(button);
}

void CLeftPathTab::addKeys(QBoxLayout& column) {
  auto* grid = new QGridLayout;
  grid->setContentsMargins(kGap, kSmallGap, kGap, 0);
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kSmallGap);
  grid->setColumnStretch(1, 1);
  for (const KeyLine& line : kKeyLines) {
    auto* keys = new TextLabel(context_, tr(line.keys), this);
    auto* meaning = new TextLabel(context_, tr(line.meaning), this);
    meaning->setWordWrap(true);
    const int row = grid->rowCount();
    grid->addWidget(keys, row, 0, Qt::AlignTop);
    grid->addWidget(meaning, row, 1, Qt::AlignTop);
  }
  column.addLayout(grid);
}

int CLeftPathTab::takeResult() {
  return std::exchange(result_, kNoResult);
}

void CLeftPathTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
