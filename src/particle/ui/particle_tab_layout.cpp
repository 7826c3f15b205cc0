#include "particle/ui/particle_tab_layout.h"

namespace pv {

const ParticleText kVertexHeader{8080, {0, 24, 168, 18}, "Vertex Controls"};
const ParticleText kDisplacementHeader{8073, {0, 108, 168, 18}, "Vertex Displacement"};
const ParticleText kInputHeader{8081, {0, 174, 168, 18}, "Particle Input Node"};

const std::array<ParticleSelector, kParticleSourceCount> kParticleSelectors{{
    {{8067, {6, 43, 40, 8}, "RGB Colour:"},
     8068,
     {54, 42, 114, 12},
     "RGB Colour:\nThis is the input node that\ngives each particle its colour."},
    {{8070, {6, 61, 40, 8}, "Vertex Size:"},
     8069,
     {54, 60, 114, 12},
     "Vertex Size:\nThis is the channel that\nsets the size of each particle."},
    {{8072, {6, 79, 47, 8}, "Vertex Active:"},
     8071,
     {54, 78, 114, 12},
     "Vertex Active:\nThis is the channel that switches vertices on and off.\nA vertex is active "
     "while the channel is above the trigger level."},
    {{8075, {6, 128, 36, 8}, "Displace X:"},
     8074,
     {54, 126, 114, 12},
     "Displace X:\nThis is the channel that\nmoves each vertex along the X axis."},
    {{8077, {6, 146, 36, 8}, "Displace Y:"},
     8076,
     {54, 144, 114, 12},
     "Displace Y:\nThis is the channel that\nmoves each vertex along the Y axis."},
    {{8079, {6, 164, 36, 8}, "Displace Z:"},
     8078,
     {54, 162, 114, 12},
     "Displace Z:\nThis is the channel that\nmoves each vertex along the Z axis."},
}};

const ParticleSlider kTriggerSlider{
    8082,
    {12, 91, 156, 16},
    "Trigger:",
    "/bin/program/part-alpha1.png",
    "/bin/program/part-alpha2.png",
    "Trigger:\nThis is the level of the channel\nfrom which a vertex is active."};

const ParticleCheck kFreezeInputCheck{
    8083,
    {54, 192, 66, 8},
    "Freeze Input",
    "Freeze Input:\nWhen checked, the input nodes are held as they are.\nWhen unchecked, particles "
    "follow the input nodes."};

const ParticleText kAutoRandomLabel{8085, {6, 206, 47, 8}, "Auto Random:"};

const std::array<ParticleCheck, kAutoRandoms.size()> kAutoRandomButtons{{
    {8086,
     {54, 204, 38, 12},
     "None",
     "Auto Random None:\nThe frozen input stays the same for all particles."},
    {8087,
     {92, 204, 38, 12},
     "Partial",
     "Auto Random Partial:\nSome of the frozen input is mixed anew by chance."},
    {8088,
     {130, 204, 38, 12},
     "Full",
     "Auto Random Full:\nAll of the frozen input is mixed anew by chance."},
}};

const ParticleCheck kRotateInsteadCheck{
    8089,
    {54, 219, 114, 8},
    "Rotate instead of random",
    "Rotate instead of random:\nWhen checked, the frozen input is turned.\nWhen unchecked, it is "
    "mixed as Auto Random says."};

const ParticleSlider kRotationSlider{8090,
                                     {12, 228, 156, 16},
                                     "Rotation:",
                                     "/bin/program/angle-full.png",
                                     "/bin/program/angle-empty.png",
                                     "Rotation:\nThis is how far the frozen input\nis turned."};

}  // namespace pv
