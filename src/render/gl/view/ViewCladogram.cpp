#include "render/gl/view/ViewCladogram.h"

#include "foundation/math/InverseMatrix.h"
#include "render/LayoutCladogram.h"
#include "render/MouseEvent.h"
#include "render/gl/device/FrameBufferObject.h"
#include "render/gl/device/OpenGL.h"
#include "render/gl/device/Texture2D.h"
#include "render/gl/draw/Batch.h"
#include "render/gl/draw/RenderGraph.h"
#include "render/gl/scene/CullVisitor.h"
#include "render/gl/scene/SceneBuilder.h"
#include "render/gl/view/Passes.h"
#include "tree/Tree.h"

#include <boost/core/noncopyable.hpp>

#include <stdexcept>
#include <string>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

using Kelmar::Math::Matrix44d;
using Kelmar::Math::Vector3d;

constexpr double thumbnailShare = 0.1;
constexpr unsigned int gapBesideText = 5;
// The height of one leaf at the greatest zoom.
constexpr unsigned int pixelsPerLeaf = 18;

/// Whether labels are drawn, for one pass; true again at the end of the scope.
class DrawTextGuard : private boost::noncopyable
{
public:
  DrawTextGuard(DisplaySettings& settings, bool drawText) : _settings(settings)
  {
    _settings.drawText(drawText);
  }
  ~DrawTextGuard() { _settings.drawText(true); }

private:
  DisplaySettings& _settings;
};

#ifndef NDEBUG
void requireNoError()
{
  if (const GLenum error = glGetError(); error != GL_NO_ERROR)
  {
    throw std::logic_error("OpenGL error " + std::to_string(error) + " in or before a frame");
  }
}
#endif

} // namespace
} // namespace Detail

ViewCladogram::ViewCladogram() : _batch(new Batch)
{
  glewInit();
  glClearColor(0, 0, 0, 1);
}

// The thumbnail's OpenGL objects that are not deleted here die with the widget's context.
ViewCladogram::~ViewCladogram() noexcept(false)
{
  _thumbnailTexture = nullptr;
  _frameBuffer = nullptr;
  _root = nullptr;
}

Kelmar::Math::Matrix44d ViewCladogram::viewMatrix() const
{
  return camera()->viewMatrix(_mainViewport);
}

void ViewCladogram::update()
{
  const boost::intrusive_ptr<TreeLayout2D> layout(new LayoutCladogram);
  if (!tree())
  {
    return;
  }
  SceneBuilder builder(tree());
  builder.buildScene(layout->layout(tree()));
  _root = builder.root();
  camera()->horizontalPixelsForText(builder.maximumTextLength() + Detail::gapBesideText);
}

void ViewCladogram::resize(unsigned int width, unsigned int height)
{
  using Detail::Matrix44d;
  const auto thumbnailWidth = static_cast<unsigned int>(width * Detail::thumbnailShare);
  _thumbnailViewport.set(0, 0, thumbnailWidth, height);
  _thumbnailProjection = Matrix44d::orthographic(-0.5, 0.5, -0.5, 0.5, -10.0, 10.0);
  _mainViewport.set(thumbnailWidth, 0, width - thumbnailWidth, height);
  _thumbnailDirty = true;
  if (_mainViewport.empty())
  {
    return;
  }
  _mainProjection =
      Matrix44d::orthographic(0.0, _mainViewport.width, 0.0, _mainViewport.height, -10.0, 10.0);
  if (tree())
  {
    camera()->updateZoomInformation(tree()->getNumberOfLeafNodes(), Detail::pixelsPerLeaf,
                                    _mainViewport);
  }
}

void ViewCladogram::render()
{
  const Kelmar::Math::Matrix44d matrix = viewMatrix();
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  if (!_mainViewport.empty())
  {
    // First the thumbnail: a picture that has to be made is finished before the main area is drawn.
    _renderThumbnailView(matrix);
    _renderMainView(matrix);
  }
  glFlush();
#ifndef NDEBUG
  Detail::requireNoError();
#endif
}

void ViewCladogram::_renderMainView(const Kelmar::Math::Matrix44d& matrix)
{
  glEnable(GL_DEPTH_TEST);
  applyViewport(_mainViewport);
  applyMatrices(_mainProjection, matrix);
  _cullAndDraw(*makePassState(_mainViewport, _mainProjection, matrix), true);
}

void ViewCladogram::_cullAndDraw(State& state, bool drawText)
{
  state.batch(_batch);
  RenderGraph graph;
  const boost::intrusive_ptr<CullVisitor> visitor(new CullVisitor(
      &state, camera()->zoomLevel(), camera()->numberOfZoomLevels(), &graph, settings()));
  if (_root)
  {
    const Detail::DrawTextGuard guard(*settings(), drawText);
    _root->accept(*visitor);
  }
  graph.render(state);
}

void ViewCladogram::handleNavigation(const MouseEvent& current, const MouseEvent& last)
{
  using Detail::Vector3d;
  if (_mainViewport.empty())
  {
    return;
  }
  const Kelmar::Math::Matrix44d toWorld = inverseOrThrow(_mainProjection * viewMatrix());
  const Vector3d a = toWorld * Vector3d(current.position[0], current.position[1], 0.0);
  const Vector3d b = toWorld * Vector3d(last.position[0], last.position[1], 0.0);
  if (current.left)
  {
    camera()->pan(0.0, a[1] - b[1]);
  }
  else if (current.right)
  {
    handleZoom(current.position[1] - last.position[1]);
  }
}

void ViewCladogram::handleZoom(double amount)
{
  camera()->zoomByAmount(camera()->zoom() * amount);
}

} // namespace orvex::render::gl
