#pragma once

namespace pv::bench {

/// Draws S3 with all modifiers at the larger size and prints the most memory
/// that the process ever had. Only true in a run of its own.
void printPeakMemory();

}  // namespace pv::bench
