#include "particle/particle_settings.h"

#include <gtest/gtest.h>

namespace pv {
namespace {

TEST(ParticleSettings, OnlyWhatTheFrozenInputNeedsCanBeUsed) {
  const ParticleSettings fresh;
  EXPECT_EQ(particlePageLook(fresh), (ParticlePageLook{false, false, false, AutoRandom::None}));
  struct Case {
    bool freeze;
    bool rotate;
    ParticlePageLook look;
  };
  for (const AutoRandom mode : kAutoRandoms) {
    for (const Case& row : {Case{false, false, {false, false, false, mode}},
                            Case{false, true, {false, false, false, mode}},
                            Case{true, false, {true, true, false, mode}},
                            Case{true, true, {true, true, true, mode}}}) {
      ParticleSettings settings;
      settings.freezeInput = row.freeze;
      settings.rotateInsteadOfRandom = row.rotate;
      settings.autoRandom = mode;
      EXPECT_EQ(particlePageLook(settings), row.look) << row.freeze << row.rotate;
    }
  }
}

TEST(ParticleSettings, SourcesComeFromTheirLists) {
  struct Case {
    ParticleSource which;
    std::int32_t place;
    bool changes;
  };
  ParticleSettings settings;
  settings.sources[2] = 99;  // from elsewhere
  for (const Case& row : {Case{ParticleSource::Colour, 1, true},
                          {ParticleSource::Colour, 1, false},
                          {ParticleSource::Colour, 2, false},
                          {ParticleSource::Size, 8, true},
                          {ParticleSource::Size, 9, false},
                          {ParticleSource::Active, -1, false},
                          {ParticleSource::DisplaceZ, 5, true}}) {
    EXPECT_EQ(chooseSource(settings, row.which, row.place), row.changes) << row.place;
  }
  EXPECT_EQ(settings.sources, (std::array<std::int32_t, 6>{1, 8, 99, 0, 0, 5}));
  EXPECT_EQ(sourceNames(ParticleSource::Colour)[1], "Node 2: RGB Colour");
  EXPECT_EQ(sourceNames(ParticleSource::DisplaceZ)[5], "Node 2: Alpha");
}

}  // namespace
}  // namespace pv
