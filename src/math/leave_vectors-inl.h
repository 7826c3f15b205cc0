// Included once for every kind of processor, inside no namespace.
#if defined(PV_MATH_LEAVE_VECTORS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef PV_MATH_LEAVE_VECTORS_INL_H_
#undef PV_MATH_LEAVE_VECTORS_INL_H_
#else
#define PV_MATH_LEAVE_VECTORS_INL_H_
#endif

#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace pv::HWY_NAMESPACE {

/// The last thing that a function does which other code calls. Upper halves of wide
/// registers that are left in use make all plain code after it up to twice as slow,
/// and compilers do not clear them on every way out.
HWY_INLINE void leaveVectors() {
#if HWY_ARCH_X86 && HWY_TARGET <= HWY_AVX2
  _mm256_zeroupper();
#endif
}

}  // namespace pv::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif
