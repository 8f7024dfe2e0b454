#include "render/gl/scene/CullPass.h"

#include "foundation/math/InverseMatrix.h"
#include "render/camera/CameraCladogram.h"
#include "render/gl/scene/CullVisitor.h"
#include "render/gl/scene/Node.h"

namespace orvex::render::gl
{

RenderGraph cullPass(Node* scene, State& state, const CameraCladogram& camera,
                     DisplaySettings& settings)
{
  // Checked here, since a counted object whose constructor throws is reported as deleted by hand.
  inverseOrThrow(state.projectionMatrix() * state.modelViewMatrix());
  RenderGraph graph;
  const boost::intrusive_ptr<CullVisitor> visitor(
      new CullVisitor(&state, camera.zoomLevel(), camera.numberOfZoomLevels(), &graph, &settings));
  if (scene)
  {
    scene->accept(*visitor);
  }
  return graph;
}

} // namespace orvex::render::gl
