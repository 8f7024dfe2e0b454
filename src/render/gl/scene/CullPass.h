#pragma once

#include "render/gl/draw/RenderGraph.h"

namespace orvex::render
{
class CameraCladogram;
class DisplaySettings;
} // namespace orvex::render

namespace orvex::render::gl
{

class Node;

/// The height of one leaf at a camera's greatest zoom, in pixels.
constexpr unsigned int pixelsPerLeaf = 18;
/// The room between the longest label and the right edge of the main area, in pixels.
constexpr unsigned int gapBesideText = 5;

/// Lists what one pass shows of a scene, at the camera's zoom level. Needs no context.
/// \param scene  null for none: nothing is listed then
/// \param state  the pass, an object on the heap
/// \throws std::runtime_error  if the matrices of the pass can't be inverted
RenderGraph cullPass(Node* scene, State& state, const CameraCladogram& camera,
                     DisplaySettings& settings);

} // namespace orvex::render::gl
