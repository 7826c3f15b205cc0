#include "app/page_strip_model.h"

namespace pv {

const std::array<StripTab, kStripPages> kStripTabs{{
    {"Emitter", "/bin/program/tab-wire.png"},
    {"Particles", "/bin/program/tab-particle.png"},
    {"Forces", "/bin/program/tab-forces.png"},
    {"Library", "/bin/program/vortexa-library.png"},
}};

std::string windowTitle(LeftPage page) {
  return "Vortexa-" + std::string(kStripTabs[static_cast<std::size_t>(tabOfPage(page))].text);
}

std::string_view informationLine(LeftPage page) {
  return page == LeftPage::Emitter
             ? "Using large emitter amounts will slow down Showcaster, or possibly crash it if the "
               "amount is excessive!\n\nCtrl+Click to use single steps in sliders."
             : "";
}

}  // namespace pv
