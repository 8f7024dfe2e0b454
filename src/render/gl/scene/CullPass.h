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

/// Lists what one pass shows of a scene, at the camera's zoom level. Needs no context.
/// \param scene  null for none: nothing is listed then
/// \param state  the pass; made with new, as the walk holds it by boost::intrusive_ptr
/// \throws std::runtime_error  if the matrices of the pass can't be inverted
RenderGraph cullPass(Node* scene, State& state, const CameraCladogram& camera,
                     DisplaySettings& settings);

} // namespace orvex::render::gl
