#include "app/ui/title_bars.h"

namespace pv {

void darkenTitleBars() {}

}  // namespace pv
