#include "app/ui/first_drawings.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "app/page_strip_model.h"
#include "shape/emitter_page.h"
#include "shape/ui/emitter_page_controls.h"
#include "view3d/ui/tab_3d_layout.h"

namespace pv {
namespace {

void addImages(std::vector<std::string>& names, const PageImages& images) {
  names.emplace_back(images.high);
  names.emplace_back(images.low);
}

void addFaces(std::vector<std::string>& names, std::span<const EmitterButton> buttons) {
  for (const EmitterButton& button : buttons) {
    names.emplace_back(button.face);
  }
}

}  // namespace

// Several controls share some of them.
std::vector<std::string> firstDrawings() {
  std::vector<std::string> names;
  names.emplace_back(kStripTabs[0].image);
  addFaces(names, kKindButtons);
  addFaces(names, kFileButtons);
  for (const EmitterSlider& slider : kEmitterSliders) {
    addImages(names, slider.images);
  }
  const EmitterPageLook look = emitterPageLook(EmitterSettings{}.kind);
  addImages(names, look.horizontalSizeImages);
  addImages(names, look.verticalAmountImages);
  addImages(names, look.verticalSizeImages);
  addFaces(names, kMappingButtons);
  names.emplace_back(kCountImage);
  for (const Tab3dButton& button : kTab3dButtons) {
    names.emplace_back(button.image);
  }
  std::vector<std::string> once;
  std::ranges::copy_if(names, std::back_inserter(once), [&once](const std::string& name) {
    return std::ranges::find(once, name) == once.end();
  });
  return once;
}

}  // namespace pv
