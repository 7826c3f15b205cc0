// What every vectorised source file includes just before Highway's
// foreach_target.h. The code is compiled once for each kind of processor below
// and chosen when the program runs; the scalar form is always among them.
// Kinds in between would cost size and build time for hardly any machine.
#ifndef HWY_DISABLED_TARGETS
#define HWY_DISABLED_TARGETS (HWY_SSSE3 | HWY_AVX3_DL)
#endif
