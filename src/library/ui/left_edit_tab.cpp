#include "library/ui/left_edit_tab.h"

#include <utility>

#include <QBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QShortcut>

#include "library/ui/file_name_edit.h"
#include "library/ui/tag_cloud_widget.h"
#include "library/ui/tag_edit_pane.h"
#include "ui/controls.h"
#include "ui/pixel_painter.h"

namespace pv {
namespace {

constexpr int kGap = Skin::kRhythm;
constexpr int kHeader = 28;

}  // namespace

CLeftEditTab::CLeftEditTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, kGap, 0, kGap);
  column->setSpacing(kGap);
  auto* header = new SectionHeader(context, tr("Available Tags"), this);
  header->setObjectName("8108");
  header->setFixedHeight(kHeader);
  column->addWidget(header);
  pane_ = new TagEditPane(context, panel_.deleteMode, this);
  column->addWidget(pane_, 1);
  addHints(*column);
  addReconstruct();
  connect(pane_, &TagEditPane::tagClicked, this, &CLeftEditTab::tagClicked);
  connect(pane_, &TagEditPane::deleteToggled, this, [this] {
    panel_.deleteToggled(pane_->cloud());
    pane_->refresh();
  });
  showFile();
}

CLeftEditTab::~CLeftEditTab() {
  pane_->cloud().saveUnsaved();
}

void CLeftEditTab::addHints(QBoxLayout& column) {
  auto* hint =
      new TextLabel(context_, tr("Select a file.\nClick a tag to relate it to the file."), this);
  hint->setObjectName("1147");
  hint->setWordWrap(true);
  column.addWidget(hint);
  file_ = new NameHint(context_, this);
  file_->setObjectName("tagged file");
  column.addWidget(file_);
}

// Hidden, as it is seldom needed.
void CLeftEditTab::addReconstruct() {
  reconstruct_ = new TextButton(context_, tr("Reconstruct Tag Links"),
                                tr("Reconstruct Tag Links:\nBuilds the tags' links anew from "
                                   "what\neach file is tagged with."),
                                pane_);
  reconstruct_->setObjectName("8095");
  reconstruct_->hide();
  pane_->row().addWidget(reconstruct_, 1);
  pane_->row().addStretch();
  connect(reconstruct_, &QAbstractButton::clicked, this,
          [this] { tell(TagPanelCode::Reconstruct); });
  auto* key = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_R), this);
  connect(key, &QShortcut::activated, reconstruct_, &QAbstractButton::click);
  pane_->view().setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&pane_->view(), &QWidget::customContextMenuRequested, this, &CLeftEditTab::showMenu);
}

void CLeftEditTab::showMenu(QPoint position) {
  auto* menu = new QMenu(&pane_->view());
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const Skin& skin = context_.skin;
  const auto hex = [](const QColor& colour) { return colour.name(); };
  menu->setFont(skin.font);
  menu->setStyleSheet(
      QString("QMenu { background: %1; color: %2; border: 1px solid %3; padding: 4px; }"
              "QMenu::item { padding: 4px 16px; }"
              "QMenu::item:selected { background: %4; color: %1; }")
          .arg(hex(skin.title), hex(brightColour(skin)), hex(skin.button), hex(skin.selected)));
  QAction* action = menu->addAction(reconstruct_->text());
  action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
  connect(action, &QAction::triggered, reconstruct_, &QAbstractButton::click);
  menu->popup(pane_->view().mapToGlobal(position));
}

void CLeftEditTab::open(const LibraryPlace& place, std::string_view libraryRoot) {
  place_ = place;
  result_ = TagPanelCode::None;
  pane_->open(place, libraryRoot);
  panel_ = {};
  showFile();
}

int CLeftEditTab::takeResult() {
  return static_cast<int>(std::exchange(result_, TagPanelCode::None));
}

void CLeftEditTab::tell(TagPanelCode code) {
  result_ = code;
  emit command();
}

void CLeftEditTab::tagClicked() {
  const bool deleting = panel_.deleteMode.on();
  const TagPanelCode code = panel_.tagClicked(pane_->cloud());
  if (deleting) {
    pane_->refresh();
  }
  if (code != TagPanelCode::None) {
    tell(code);
  }
}

void CLeftEditTab::selectFile(std::string_view name) {
  if (name != panel_.selectedFile()) {
    applyFileTags(name);
  }
}

void CLeftEditTab::applyFileTags(std::string_view name) {
  if (!name.empty()) {
    // The file's tags become marked, and whatever is marked would be deleted.
    panel_.deleteMode.end();
  }
  panel_.fileSelected(pane_->cloud(), place_, name);
  pane_->refresh();
  showFile();
}

void CLeftEditTab::updateFileTags() {
  changeFileTags(pane_->cloud(), place_, panel_.selectedFile());
  pane_->refresh();
}

void CLeftEditTab::unlinkFile(std::string_view name) {
  pane_->cloud().unlinkFile(name);
  pane_->refresh();
}

void CLeftEditTab::reconstruct(std::span<const std::string> names) {
  reconstructLinks(pane_->cloud(), place_, names);
  if (panel_.deleteMode.on()) {
    pane_->refresh();
  } else {
    applyFileTags(std::string(panel_.selectedFile()));
  }
}

bool CLeftEditTab::writeAllTags() {
  return pane_->cloud().saveAll();
}

void CLeftEditTab::showFile() {
  const QString name = QString::fromStdString(panel_.selectedFile());
  const QString text = name.isEmpty() ? tr("No file is selected.") : tr("Tagging: %1").arg(name);
  file_->setText(file_->fontMetrics().elidedText(text, Qt::ElideMiddle, width()));
  file_->setAccessibleName(text);
}

QSize CLeftEditTab::sizeHint() const {
  return {252, 624};
}

void CLeftEditTab::resizeEvent(QResizeEvent* /*event*/) {
  showFile();
}

void CLeftEditTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
