#pragma once

namespace pv::bench {

// Each registers its benchmarks under "stage/scene" or "stage/scene/size".

/// Generation, modifiers, duplication, random directions.
void registerMeshStages();
/// Projection, and drawing: clear, project, lines.
void registerDrawingStages();
/// Whole frames, with every setting handed in anew, and still ones.
void registerFrames();
/// Listing, tags, filtering and thumbnails of libraries of several sizes.
void registerLibraryStages();
/// The toolkit's painter drawing the same segments into an image.
void registerPainter();

}  // namespace pv::bench
