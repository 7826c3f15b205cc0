// Every skinned control in every state, so that the skin can be judged at a
// glance. States that need a pointer or a focus are made by hand-sent events.

#include <string>
#include <vector>

#include <QApplication>
#include <QGridLayout>
#include <QStyleFactory>
#include <QTimer>

#include "ui/controls.h"
#include "ui/image_button.h"
#include "ui/list_selector.h"
#include "ui/page_strip.h"
#include "ui/popup_help.h"
#include "ui/spin_combo.h"
#include "util/program_path.h"

namespace pv {
namespace {

std::string icon(const char* name) {
  return std::string("/bin/program/") + name + ".png";
}

enum class State {
  Normal,
  Hover,
  Pressed,
  Checked,
  CheckedHover,
  Focused,
  Disabled,
  CheckedDisabled
};

constexpr struct {
  State state;
  const char* name;
} kStates[] = {{State::Normal, "Normal"},
               {State::Hover, "Hover"},
               {State::Pressed, "Pressed"},
               {State::Checked, "Checked"},
               {State::CheckedHover, "Checked, hover"},
               {State::Focused, "Focus"},
               {State::Disabled, "Disabled"},
               {State::CheckedDisabled, "Checked, disabled"}};

/// The page of all controls; it asks for the states once it is on the screen.
class Gallery : public QWidget {
 public:
  explicit Gallery(const UiContext& context) : context_(context) {
    setWindowTitle("Gallery");
    QPalette colours = palette();
    colours.setColor(QPalette::Window, context.skin.panel);
    setPalette(colours);
    auto* columns = new QGridLayout(this);
    columns->setContentsMargins(16, 16, 16, 16);
    columns->setHorizontalSpacing(32);
    columns->setSizeConstraint(QLayout::SetFixedSize);
    columns->addWidget(buttons(), 0, 0, Qt::AlignTop);
    columns->addWidget(panel(), 0, 1, Qt::AlignTop);
  }

 private:
  void put(QAbstractButton* button, State state) {
    button->setCheckable(true);
    button->setChecked(state == State::Checked || state == State::CheckedHover ||
                       state == State::CheckedDisabled);
    button->setDown(state == State::Pressed);
    put(static_cast<QWidget*>(button), state);
  }

  void put(QWidget* control, State state) {
    control->setEnabled(state != State::Disabled && state != State::CheckedDisabled);
    if (state == State::Hover || state == State::CheckedHover) {
      // The toolkit itself sets it only for the pointer.
      QTimer::singleShot(300, control, [control] {
        control->setAttribute(Qt::WA_UnderMouse);
        control->update();
      });
    } else if (state == State::Focused) {
      QTimer::singleShot(900, control, [control] { showFocused(*control); });
    }
  }

  // Only one widget has the focus at a time, so the others leave their picture.
  static void showFocused(QWidget& control) {
    control.setFocus(Qt::TabFocusReason);
    auto* picture = new QLabel(control.parentWidget());
    picture->setPixmap(control.grab());
    picture->setGeometry(control.geometry());
    picture->show();
  }

  QWidget* buttons() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(8);
    int row = 0;
    grid->addWidget(new SectionHeader(context_, "Buttons"), row++, 0, 1, 6);
    for (const auto& [state, name] : kStates) {
      int column = 0;
      grid->addWidget(new TextLabel(context_, name), row, column++);
      for (const char* image : {"object-sweep2", "camera-rotate", "no-such-image"}) {
        auto* button = new ImageButton(context_, icon(image), "Sweep Path:\nRound shapes.");
        button->setFixedSize(36, 36);
        put(button, state);
        grid->addWidget(button, row, column++);
      }
      auto* text = new TextButton(context_, "Finished", "Finish:\nEnds the mode.");
      put(text, state);
      grid->addWidget(text, row, column++);
      auto* box = new CheckBox(context_, "Center Sections", "Center Sections:\nCentred.");
      put(box, state);
      grid->addWidget(box, row++, column);
    }
    addJoined(*grid, row);
    return page;
  }

  void addJoined(QGridLayout& grid, int row) {
    using Joint = ImageButton::Joint;
    grid.addWidget(new TextLabel(context_, "Joined"), row, 0);
    for (const int lit : {0, 1, 2}) {
      auto* host = new QWidget;
      int x = 0;
      for (const auto& [joint, image] : {std::pair{Joint::First, "object-move2"},
                                         {Joint::Middle, "object-rotate2"},
                                         {Joint::Last, "object-scale2"}}) {
        auto* button = new ImageButton(context_, icon(image), "Modifier - Vertex Move:\n", host);
        button->setJoint(joint);
        button->setGeometry(36 * x, 0, 36, 36);
        put(button, x++ == lit ? State::Checked : State::Normal);
      }
      host->setFixedSize(108, 36);
      grid.addWidget(host, row + lit, 1, 1, 3);
    }
  }

  CSpinCombo* value(const char* label, int low, int high, int value, const char* highImage,
                    const char* lowImage) {
    auto* control =
        new CSpinCombo(context_, label, QString(label) + "\nThis is the value\nwith every copy.");
    control->setImages(highImage != nullptr ? icon(highImage) : "",
                       lowImage != nullptr ? icon(lowImage) : "");
    control->setRange(low, high);
    control->setValue(value);
    control->setFixedSize(252, 24);
    return control;
  }

  QWidget* panel() {
    auto* page = new QWidget;
    auto* rows = new QGridLayout(page);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setVerticalSpacing(6);
    addStrips(*rows);
    rows->addWidget(new SectionHeader(context_, "Horizontal Sections"));
    rows->addWidget(value("Amount:", 0, 400, 40, "object-grid2", "object-grid9"));
    rows->addWidget(value("Start:", 0, 180, 500, "orb-4", "orb-3"));
    rows->addWidget(value("Position:", -200, 200, -120, "duplicate-4", "duplicate-3"));
    rows->addWidget(value("Scale:", -200, 200, 0, "duplicate-7", "duplicate-6"));
    auto* hover = value("Rotate:", 0, 359, 180, "duplicate-5", "duplicate-1");
    put(hover, State::Hover);
    rows->addWidget(hover);
    auto* focused = value("Copies:", 0, 20, 0, "duplicate-2", "duplicate-1");
    put(focused, State::Focused);
    rows->addWidget(focused);
    auto* disabled = value("Angle:", 0, 360, 90, "angle-full", "angle-empty");
    put(disabled, State::Disabled);
    rows->addWidget(disabled);
    rows->addWidget(value("Plain:", 0, 100, 50, nullptr, nullptr));
    addFields(*rows);
    return page;
  }

  void addStrips(QGridLayout& rows) {
    const std::vector<PageStrip::Tab> tabs{{"Emitter", icon("tab-wire")},
                                           {"Particles", icon("tab-particle")},
                                           {"Forces", icon("tab-forces")},
                                           {"Library", icon("vortexa-library")}};
    for (const State state : {State::Normal, State::Hover, State::Focused, State::Disabled}) {
      auto* strip = new PageStrip(context_, tabs);
      strip->setCurrent(static_cast<int>(rows.count()) % 4);
      connect(strip, &PageStrip::tabRequested, strip, &PageStrip::setCurrent);
      connect(strip, &PageStrip::nextRequested, strip,
              [strip] { strip->setCurrent((strip->current() + 1) % 4); });
      put(strip, state);
      rows.addWidget(strip);
    }
  }

  void addFields(QGridLayout& rows) {
    rows.addWidget(new SectionHeader(context_, "Lists and fields"));
    for (const State state : {State::Normal, State::Hover, State::Focused, State::Disabled}) {
      auto* list = new ListSelector(context_, "Blend", "Blend:\nHow particles are mixed.");
      list->addItems({"Additive", "Alpha", "Solid"});
      put(list, state);
      rows.addWidget(list);
    }
    for (const State state : {State::Normal, State::Focused, State::Disabled}) {
      auto* edit = new EditBox(context_, "Core name");
      edit->setText(state == State::Normal ? "" : "spiral galaxy");
      edit->setPlaceholderText("Core name");
      put(edit, state);
      rows.addWidget(edit);
    }
    auto* line = new TextLabel(
        context_,
        "Using large emitter amounts will slow down Showcaster, or possibly crash it if the "
        "amount is excessive!\n\nCtrl+Click to use single steps in sliders.");
    line->setWordWrap(true);
    rows.addWidget(line);
  }

  const UiContext& context_;
};

}  // namespace
}  // namespace pv

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  const std::string folder = argc > 1 ? argv[1] : PV_ART;
  const pv::UiContext context{pv::skinFrom({}), pv::ImageStore(pv::programPath(folder))};
  pv::Gallery gallery(context);
  gallery.show();
  return QApplication::exec();
}
