#pragma once

#include "ui/image_store.h"
#include "ui/skin.h"

namespace pv {

/// What every page and control paints with; outlives them all.
struct UiContext {
  Skin skin;
  ImageStore images;
};

}  // namespace pv
