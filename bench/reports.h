#pragma once

namespace pv::bench {

// Each prints a report of its own and returns the program's exit status.

/// Our times beside those of plain code, the toolkit's painter and AGG, and which
/// bars are met; 1 when one is missed or a picture of ours differs from the plain one.
[[nodiscard]] int printBar();

/// How a whole frame and the drawing alone grow with sections, copies and pixels.
[[nodiscard]] int printGrowth();

/// What the machine can do at most, to set times against.
[[nodiscard]] int printMachine();

/// Draws S3 with all modifiers at the larger size and prints the most memory that
/// the process ever had, which is only true in a run of its own; 1 above the bar.
[[nodiscard]] int printPeakMemory();

}  // namespace pv::bench
