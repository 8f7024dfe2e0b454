#pragma once

namespace orvex::render
{
struct DrawingPass;
}

namespace orvex::render::gl
{

/// Gives the current context the viewport and the matrices of a pass. Leaves the model-view matrix
/// as the one that further calls change.
void applyPass(const DrawingPass& pass);

} // namespace orvex::render::gl
