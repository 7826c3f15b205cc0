#include "particle/particle_settings.h"

namespace pv {

namespace {

constexpr std::array<std::string_view, 2> kColours{"Node 1: RGB Colour", "Node 2: RGB Colour"};
constexpr std::array<std::string_view, 9> kChannels{
    "Not used",      "Node 1: Alpha", "Node 1: Red",   "Node 1: Green", "Node 1: Blue",
    "Node 2: Alpha", "Node 2: Red",   "Node 2: Green", "Node 2: Blue"};

}  // namespace

std::span<const std::string_view> sourceNames(ParticleSource which) {
  if (which == ParticleSource::Colour) {
    return kColours;
  }
  return kChannels;
}

bool chooseSource(ParticleSettings& settings, ParticleSource which, std::int32_t place) {
  std::int32_t& source = settings.sources[static_cast<std::size_t>(which)];
  if (place < 0 || static_cast<std::size_t>(place) >= sourceNames(which).size() ||
      place == source) {
    return false;
  }
  source = place;
  return true;
}

ParticlePageLook particlePageLook(const ParticleSettings& settings) {
  const bool frozen = settings.freezeInput;
  return {frozen, frozen, frozen && settings.rotateInsteadOfRandom, settings.autoRandom};
}

}  // namespace pv
