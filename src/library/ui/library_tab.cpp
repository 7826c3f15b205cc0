#include "library/ui/library_tab.h"

#include <QBoxLayout>
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

}  // namespace

using enum LibraryRow;
const std::array<LibraryControl, kLibraryControlCount> kLibraryControls{{
    {8108, Header, "Emitter", 0, "/bin/program/tab-wire.png", "Emitter", ""},
    {8106, Button, "Load 3d Shape", 1, "/bin/program/library-load3d.png", "Load 3d Shape",
     "Load 3d Shape:\nThis opens the library of 3d shapes\nwhere you can find one by its tags\n"
     "and load it."},
    {8107, Button, "Edit Tags", 2, "/bin/program/library-edit3d.png", "Edit Tags of 3d Shapes",
     "Edit Tags:\nThis opens the library of 3d shapes\nwhere you can edit the tags of each."},
    {8105, Header, "Path", 0, "/bin/program/library-2d.png", "Path", ""},
    {8030, HiddenButton, "Load 2d Path", 3, "/bin/program/library-load2d.png", "Load 2d Path",
     "Load 2d Path:\nThis opens the library of 2d paths\nwhere you can find one by its tags\n"
     "and load it."},
    {8031, Button, "Edit Tags", 4, "/bin/program/library-edit2d.png", "Edit Tags of 2d Paths",
     "Edit Tags:\nThis opens the library of 2d paths\nwhere you can edit the tags of each."},
    {8109, Header, "Particles", 0, "/bin/program/tab-particle.png", "Particles", ""},
    {8032, DisabledButton, "Load Particle", 5, "/bin/program/library-loadparticle.png",
     "Load Particle", "Load Particle:\nThere is no library of particles."},
    {8033, DisabledButton, "Edit Tags", 6, "/bin/program/library-editparticle.png",
     "Edit Tags of Particles", "Edit Tags:\nThere is no library of particles."},
    {8110, Header, "Forces", 0, "/bin/program/tab-forces.png", "Forces", ""},
    {8034, DisabledButton, "Load Force", 7, "/bin/program/library-loadforce.png", "Load Force",
     "Load Force:\nThere is no library of forces."},
    {8035, DisabledButton, "Edit Tags", 8, "/bin/program/library-editforce.png",
     "Edit Tags of Forces", "Edit Tags:\nThere is no library of forces."},
}};

CLibraryTab::CLibraryTab(const UiContext& context, QWidget* parent)
    : QWidget(parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, kGap, 0, 0);
  column->setSpacing(kSmallGap);  // none beside a hidden button
  for (const LibraryControl& row : kLibraryControls) {
    row.row == Header ? addHeader(*column, row) : addButton(*column, row);
  }
  column->addStretch();
}

void CLibraryTab::addHeader(QBoxLayout& column, const LibraryControl& row) {
  auto* header = new SectionHeader(context_, tr(row.text), this);
  header->setObjectName(QString::number(row.id));
  header->setImage(row.image);
  header->setFixedHeight(kHeader);
  if (row.id != kLibraryControls.front().id) {
    column.addSpacing(kGap);
  }
  column.addWidget(header);
}

void CLibraryTab::addButton(QBoxLayout& column, const LibraryControl& row) {
  auto* button = new ImageButton(context_, row.image, tr(row.help), this);
  button->setObjectName(QString::number(row.id));
  button->setText(tr(row.text));
  button->setAccessibleName(tr(row.name));
  button->setFixedHeight(kButton);
  button->setEnabled(row.row != DisabledButton);
  if (row.row == HiddenButton) {
    button->hide();
  }
  connect(button, &ImageButton::clicked, this, [this, &row] { press(row.code); });
  column.addWidget(button);
}

void CLibraryTab::press(int code) {
  selection_ = code;
  emit command();
  selection_ = 0;
}

void CLibraryTab::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), context_.skin.page);
}

}  // namespace pv
