#pragma once

namespace pv::bench {

// Each registers its benchmarks under "stage/scene" or "stage/scene/size".

/// Generation, modifiers, duplication, random directions.
void registerMeshStages();
/// Drawing (clear, project, lines), and whole frames: with every setting handed in
/// anew, and still ones.
void registerDrawingStages();
/// Listing, tags, filtering and thumbnails of libraries of several sizes.
void registerLibraryStages();
/// The toolkit's painter doing the same drawing, projected by plain code.
void registerPainter();

}  // namespace pv::bench
