#pragma once

#include <array>
#include <cstddef>

#include "particle/particle_settings.h"
#include "ui/dialog_units.h"

namespace pv {

// The particle page's controls with their places in dialog units of the page.
inline constexpr DialogRect kParticlePage{0, 0, 168, 384};

/// A header or a label.
struct ParticleText {
  int id = 0;
  DialogRect rect;
  const char* text = nullptr;
};

/// A list with the label before it; the label without its colon is its name.
struct ParticleSelector {
  ParticleText label;
  int id = 0;
  DialogRect rect;
  const char* help = nullptr;
};

/// The image of the high end comes first.
struct ParticleSlider {
  int id = 0;
  DialogRect rect;
  const char* text = nullptr;
  const char* highImage = nullptr;
  const char* lowImage = nullptr;
  const char* help = nullptr;
};

/// A check box or one of the joined buttons.
struct ParticleCheck {
  int id = 0;
  DialogRect rect;
  const char* text = nullptr;
  const char* help = nullptr;
};

extern const ParticleText kVertexHeader;
extern const ParticleText kDisplacementHeader;
extern const ParticleText kInputHeader;
/// By ParticleSource.
extern const std::array<ParticleSelector, kParticleSourceCount> kParticleSelectors;
extern const ParticleSlider kTriggerSlider;
extern const ParticleSlider kRotationSlider;
extern const ParticleCheck kFreezeInputCheck;
extern const ParticleCheck kRotateInsteadCheck;
extern const ParticleText kAutoRandomLabel;
/// By place in kAutoRandoms.
extern const std::array<ParticleCheck, kAutoRandoms.size()> kAutoRandomButtons;

}  // namespace pv
