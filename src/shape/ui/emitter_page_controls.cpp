#include "shape/ui/emitter_page_controls.h"

namespace pv {

const std::array<EmitterButton, 5> kKindButtons{{
    {8024, "/bin/program/object-point2.png", "Point Emitter:\nThis is a single point."},
    {8026, "/bin/program/object-grid2.png", "Grid Patch:\nThis is a defined flat grid."},
    {8027, "/bin/program/object-patch2.png",
     "Sphere Patch:\nThis is a defined grid\nmapped onto a sphere."},
    {8028, "/bin/program/object-loft2.png",
     "Loft Path:\nThis is a user defined path\npulled to make a flat 3d Shape."},
    {8029, "/bin/program/object-sweep2.png",
     "Sweep Path:\nThis is a user defined path\nrotated to make a round 3d Shape."},
}};

const std::array<EmitterButton, 3> kFileButtons{{
    {8031, "/bin/program/shape-load.png", "Load 3d Shape:\nLoad a 3d Shape from disk."},
    {8033, "/bin/program/shape-save.png", "Save 3d Shape:\nSave a 3d Shape to disk."},
    {8032, "/bin/program/path-edit.png",
     "Edit Path:\nThis opens the path editor\nwhere you can edit the path\nor make a new one."},
}};

const std::array<EmitterButton, 3> kAxisButtons{{
    {8090, "X Axis", "X Axis:\nThis will active the controls for the X Axis."},
    {8089, "Y Axis", "Y Axis:\nThis will active the controls for the Y Axis."},
    {8088, "Z Axis", "Z Axis:\nThis will active the controls for the Z Axis."},
}};

const EmitterButton kAxisResetButton{
    8091, "Reset",
    "Reset:\nThis will reset the current XYZ axis controls:\n Position, Rotation and Scale."};

const std::array<EmitterButton, 3> kMappingButtons{{
    {8093, "/bin/program/map-norm.png",
     "Duplicate Texture Mapping Normal:\nWhen selected, all duplicates use the same global texture "
     "mapping."},
    {8094, "/bin/program/map-horz.png",
     "Duplicate Texture Mapping Horizontal:\nWhen selected, each duplicate is mapped horizontally "
     "(left to right) from the same global texture map."},
    {8095, "/bin/program/map-vert.png",
     "Duplicate Texture Mapping Vertical:\nWhen selected, each duplicate is mapped vertically (top "
     "to bottom) from the same global texture map."},
}};

const std::array<EmitterSlider, kEmitterSliderCount> kEmitterSliders{{
    {8034,
     "Amount:",
     {0, 400},
     {"/bin/program/object-grid2.png", "/bin/program/object-grid9.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.emitter.horizontalAmount; },
     "Horizontal Amount:\nThis is the amount of horizontal sections\nin the final 3d Shape"},
    {8035,
     "Height:",
     {1, 100},
     {"/bin/program/object-grid4.png", "/bin/program/object-grid7.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.emitter.horizontalSize; },
     "Horizontal Height/Position Start:\nThis is the height of each horizontal section.\nOr the "
     "start position of a sphere patch"},
    {8042,
     "End:",
     {0, 180},
     {"/bin/program/orb-2.png", "/bin/program/orb-1.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.emitter.horizontalEnd; },
     "Position End:\nThis is the end height of a sphere patch."},
    {8039,
     "Amount:",
     {0, 400},
     {"/bin/program/rotations-2.png", "/bin/program/rotations-1.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.emitter.verticalAmount; },
     "Vertical Amount:\nThis is the amount of vertical sections\nin the final 3d Shape"},
    {8040,
     "Angle:",
     {0, 360},
     {"/bin/program/angle-full.png", "/bin/program/angle-empty.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.emitter.verticalSize; },
     "Vertical Width:\nThis is the Width of each vertical section."},
    {8043,
     "Copies:",
     {0, kMaxDuplicateCopies},
     {"/bin/program/duplicate-2.png", "/bin/program/duplicate-1.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.emitter.copies; },
     "Duplicate Copies:\nThis is the amount of duplicates wanted."},
    {8044,
     "Position:",
     {-200, 200},
     {"/bin/program/duplicate-4.png", "/bin/program/duplicate-3.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.selectedAxis().position; },
     "Position:\nThis is the position each duplicate moves\nwith every copy."},
    {8045,
     "Rotate:",
     {0, 359},
     {"/bin/program/duplicate-5.png", "/bin/program/duplicate-1.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.selectedAxis().rotation; },
     "Rotation:\nThis is the amount of rotation each duplicate rotates\nwith every copy."},
    {8046,
     "Scale:",
     {-200, 200},
     {"/bin/program/duplicate-7.png", "/bin/program/duplicate-6.png"},
     [](EmitterPageState& page) -> std::int32_t& { return page.selectedAxis().scale; },
     "Scale:\nThis is the scale each duplicate has\nwith every copy."},
}};

const std::array<EmitterCheck, kEmitterCheckCount> kEmitterChecks{{
    {8036, "Center Sections", "Center Sections (horizontal)",
     [](const EmitterPageState& page) { return page.emitter.horizontalCentre.isSet(); },
     [](EmitterPageState& page, bool on) { page.emitter.horizontalCentre.set(on); },
     "Center Sections:\nWhen checked the start and end sizes are centered.\nWhen unchecked the "
     "start and ends are exact positions."},
    {8041, "Center Sections", "Center Sections (vertical)",
     [](const EmitterPageState& page) { return page.emitter.verticalCentre.isSet(); },
     [](EmitterPageState& page, bool on) { page.emitter.verticalCentre.set(on); },
     "Center Sections:\nWhen checked the 3d Object is centered round the X Axis.\nWhen unchecked "
     "the 3d Shape starts from the X Axis."},
    {8047, "Apply Modifiers Globally", "Apply Modifiers Globally",
     [](const EmitterPageState& page) { return page.applyModifiersGlobally; },
     [](EmitterPageState& page, bool on) { page.applyModifiersGlobally = on; },
     "Use Global Modifiers:\nWhen checked, the modifiers operate on duplicates as one single "
     "object.\nWhen unchecked, the modifers work on each duplicate"},
    {8048, "Use World central axis", "Use World central axis",
     [](const EmitterPageState& page) { return page.useWorldAxis; },
     [](EmitterPageState& page, bool on) { page.useWorldAxis = on; },
     "Use World central axis:\nWhen checked, any duplicate operations (rotation, etc) operate "
     "around the world center.\nWhen unchecked, the center of the 3d Shape is used for each "
     "duplicate operation."},
}};

}  // namespace pv
