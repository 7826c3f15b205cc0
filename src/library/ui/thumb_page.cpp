#include "library/ui/thumb_page.h"

#include <QBoxLayout>

#include "library/ui/thumb_list_widget.h"
#include "library/ui/thumb_painter.h"
#include "ui/dialog_units.h"

namespace pv {
namespace {

constexpr DialogRect kPage{0, 0, 409, 345};
constexpr int kRightMargin = 2;
constexpr int kGap = Skin::kRhythm;
constexpr int kButtonHeight = 32;
constexpr int kButtonWidth = 128;
constexpr double kWarningLight = 0.45;  // towards white, to be read on the page
constexpr int kSlow = 250;              // milliseconds after which the progress is worth telling

}  // namespace

ThumbStatus::ThumbStatus(const UiContext& context, const ThumbListWidget& list, QWidget* parent)
    : TextLabel(context, {}, parent), context_(context), list_(list) {
  setIndent(2);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  connect(&list, &ThumbListWidget::progress, this, &ThumbStatus::showFigures);
}

void ThumbStatus::setGone(int gone) {
  gone_ = gone;
  showFigures();
}

void ThumbStatus::setWarning(const QString& warning) {
  warning_ = warning;
  QPalette colours = palette();
  const QColor alarm = mixed(warningColour(), Qt::white, kWarningLight);
  colours.setColor(QPalette::WindowText, warning.isEmpty() ? context_.skin.text : alarm);
  setPalette(colours);
  showFigures();
}

void ThumbStatus::showFigures() {
  if (list_.pending() == 0 || !list_.isVisible()) {
    loading_.invalidate();
  } else if (!loading_.isValid()) {
    loading_.start();
  }
  setText(warning_.isEmpty() ? figures() : warning_);
}

QString ThumbStatus::figures() const {
  if (loading_.isValid() && loading_.hasExpired(kSlow)) {
    const int total = list_.visibleCount();
    return tr("Loading pictures %1 of %2").arg(total - list_.pending()).arg(total);
  }
  const int all = list_.list().count() - gone_;
  const int shown = list_.list().shownCount();
  const QString files = all == 1 ? tr("1 file") : tr("%1 files").arg(all);
  return all <= 0 ? QString() : shown == all ? files : tr("%1 of %2").arg(shown).arg(files);
}

QSize thumbPageSize() {
  const DialogRect page = inPixels(kPage);
  return {page.width, page.height};
}

void layOutThumbPage(QWidget& page, QWidget& list, QWidget& status,
                     std::initializer_list<QWidget*> buttons) {
  auto* column = new QVBoxLayout(&page);
  column->setContentsMargins(0, 0, kRightMargin, kGap);
  column->setSpacing(kGap);
  column->addWidget(&list, 1);
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  row->addWidget(&status, 1);
  for (QWidget* button : buttons) {
    button->setFixedSize(kButtonWidth, kButtonHeight);
    row->addWidget(button);
  }
  column->addLayout(row);
}

}  // namespace pv
