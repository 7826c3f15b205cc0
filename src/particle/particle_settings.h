#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace pv {

/// What happens while the input is frozen; the values are bit weights.
enum class AutoRandom : std::int32_t { None = 1, Partial = 4, Full = 8 };
inline constexpr std::array kAutoRandoms{AutoRandom::None, AutoRandom::Partial, AutoRandom::Full};

/// The attributes of a particle that an input node drives, in the page's order.
enum class ParticleSource : std::uint8_t { Colour, Size, Active, DisplaceX, DisplaceY, DisplaceZ };
inline constexpr std::size_t kParticleSourceCount = 6;

struct ParticleRange {
  std::int32_t low = 0;
  std::int32_t high = 0;
};
inline constexpr ParticleRange kTriggerRange{10, 245};   ///< of a channel's 0 to 255
inline constexpr ParticleRange kRotationRange{10, 359};  ///< degrees

/// How particles take their appearance from the effect's input nodes: all that
/// the particle page holds. Values outside the lists and ranges are kept.
struct ParticleSettings {
  std::array<std::int32_t, kParticleSourceCount> sources{};  ///< places in sourceNames
  std::int32_t trigger = 128;                                ///< half of what a channel can be
  bool freezeInput = false;
  AutoRandom autoRandom = AutoRandom::None;
  bool rotateInsteadOfRandom = false;
  std::int32_t rotation = 359;  ///< degrees

  [[nodiscard]] std::int32_t source(ParticleSource which) const {
    return sources[static_cast<std::size_t>(which)];
  }
  bool operator==(const ParticleSettings&) const = default;
};

/// What can drive an attribute: the nodes' colours, or "Not used" and their channels.
[[nodiscard]] std::span<const std::string_view> sourceNames(ParticleSource which);

/// Sets a source and says whether it is another one than before. A place
/// outside the list changes nothing.
bool chooseSource(ParticleSettings& settings, ParticleSource which, std::int32_t place);

/// What of the page can be used and which of the Auto Random buttons is lit.
struct ParticlePageLook {
  bool autoRandom = false;             ///< the three buttons and their label
  bool rotateInsteadOfRandom = false;  ///< the check box
  bool rotation = false;
  AutoRandom lit = AutoRandom::None;

  bool operator==(const ParticlePageLook&) const = default;
};

/// Freezing the input makes a choice of what replaces it; only rotation has an
/// amount. What cannot be used keeps its value. A mode that is none of the three
/// lights no button.
[[nodiscard]] ParticlePageLook particlePageLook(const ParticleSettings& settings);

}  // namespace pv
