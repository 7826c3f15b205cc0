#include <initializer_list>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QLineEdit>
#include <QStackedWidget>

#include "app/page_strip_model.h"
#include "app/ui/library_desk.h"
#include "app/ui/main_dialog.h"
#include "app/ui/quiet_page.h"
#include "library/ui/library_tab.h"
#include "particle/ui/particle_tab.h"
#include "path/ui/edit_path_tab.h"
#include "path/ui/left_path_tab.h"
#include "shape/ui/tab_emitter.h"
#include "ui/controls.h"
#include "ui/page_strip.h"
#include "view3d/ui/tab_3d.h"

namespace pv {
namespace {

QString toText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A file dropped on a number field is meant for the window.
void leaveDropsToWindow(const QWidget& page) {
  for (auto* field : page.findChildren<QLineEdit*>()) {
    field->setAcceptDrops(false);
  }
}

// Without a place: one that is put under the page that shows would repaint that.
void addPages(QStackedWidget& host, std::initializer_list<QWidget*> pages) {
  for (QWidget* page : pages) {
    page->setGeometry(QRect());
    host.addWidget(page);
  }
}

// As if the page had been made just now, for the Tab key.
void moveToEndOfTabOrder(const QWidget& page) {
  QWidgetList parts;
  for (QWidget* at = page.nextInFocusChain(); page.isAncestorOf(at); at = at->nextInFocusChain()) {
    parts.append(at);
  }
  QWidget* last = page.window()->previousInFocusChain();
  for (QWidget* part : parts) {
    QWidget::setTabOrder(last, part);
    last = part;
  }
}

}  // namespace

void MainDialog::buildStrip() {
  std::vector<PageStrip::Tab> tabs;
  tabs.reserve(kStripTabs.size());
  for (const StripTab& tab : kStripTabs) {
    tabs.push_back({toText(tab.text), std::string(tab.image)});
  }
  strip_ = new PageStrip(context_, std::move(tabs), desk_);
  strip_->setObjectName("8019");
  connect(strip_, &PageStrip::nextRequested, this, [this] { showPage(nextPage(page())); });
  connect(strip_, &PageStrip::tabRequested, this, [this](int tab) { showPage(pageOfTab(tab)); });
}

// Only with what shows first.
void MainDialog::buildPanels() {
  leftFrame_ = new PanelFrame(context_, desk_);
  leftFrame_->setObjectName("8020");
  leftHost_ = new QStackedWidget(desk_);
  leftHost_->setObjectName("8022");
  emitter_ = new CTabEmitter(context_);
  leftHost_->addWidget(emitter_);
  leaveDropsToWindow(*emitter_);

  rightFrame_ = new PanelFrame(context_, desk_);
  rightFrame_->setObjectName("8029");
  rightHost_ = new QStackedWidget(desk_);
  rightHost_->setObjectName("8028");
  tab3d_ = new CTab3d(context_);
  rightHost_->addWidget(tab3d_);

  information_ = new TextLabel(context_, QString(), desk_);
  information_->setObjectName("8058");
  information_->setContentsMargins(2, 4, 0, 0);
  information_->setWordWrap(true);
  information_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void MainDialog::buildOtherPages() {
  if (libraries_ != nullptr) {
    return;
  }
  libraries_ = new LibraryDesk(context_, setup_.applicationFolder, this);
  library_ = new CLibraryTab(context_);
  particleTab_ = new CParticleTab(context_);
  pathPage_ = new CLeftPathTab(context_);
  pathEditor_ = new CEditPathTab(context_);
  // In the order of LeftPage; the emitter's page is there.
  library_->setGeometry(QRect());
  leftHost_->insertWidget(static_cast<int>(LeftPage::Library), library_);
  addPages(*leftHost_, {particleTab_, new QuietPage(context_, tr("There are no forces to set.")),
                        pathPage_, libraries_->page(LeftPage::Save),
                        libraries_->page(LeftPage::Load), libraries_->page(LeftPage::EditTags)});
  moveToEndOfTabOrder(*tab3d_);
  // In the order of RightPage.
  addPages(*rightHost_, {pathEditor_, libraries_->page(RightPage::Save),
                         libraries_->page(RightPage::Load), libraries_->page(RightPage::EditTags)});
  leaveDropsToWindow(*desk_);
  connectOtherPages();
}

void MainDialog::connectEmitter() {
  connect(emitter_, &CTabEmitter::command, this, [this] {
    leftCommand({emitter_->pendingRequest(), emitter_->editPathRequest() == 1});
  });
}

void MainDialog::connectOtherPages() {
  connect(library_, &CLibraryTab::command, this, [this] { leftCommand({library_->selection()}); });
  connect(particleTab_, &CParticleTab::command, this, [this] { leftCommand({}); });
  connect(pathPage_, &CLeftPathTab::command, this,
          [this] { leftCommand({pathPage_->takeResult()}); });
  connect(pathEditor_, &CEditPathTab::command, this,
          [this] { rightCommand({pathEditor_->takeResult()}); });
  connect(pathEditor_, &CEditPathTab::readoutChanged, this, &MainDialog::showInformation);
  connect(libraries_, &LibraryDesk::leftCommand, this, [this](int code) { leftCommand({code}); });
  connect(libraries_, &LibraryDesk::rightCommand, this, [this](int code) { rightCommand({code}); });
  connect(libraries_, &LibraryDesk::choiceChanged, this, &MainDialog::showPreview);
}

void MainDialog::connectModifiers() {
  connect(tab3d_, &CTab3d::modifierChanged, this, [this] {
    showName();
    showModifier();
  });
  // Any of the page's buttons may have chosen another modifier.
  for (const auto* button : tab3d_->findChildren<QAbstractButton*>()) {
    connect(button, &QAbstractButton::clicked, this, &MainDialog::showModifier);
  }
}

void MainDialog::followFirstPicture() {
  buildOtherPages();
  emit pictureShown();
}

}  // namespace pv
