#include "render/gl/view/ViewCladogram.h"

#include "foundation/math/InverseMatrix.h"
#include "foundation/system/LargePages.h"
#include "render/camera/MouseEvent.h"
#include "render/gl/device/OpenGL.h"
#include "render/gl/draw/ApplyPass.h"
#include "render/gl/draw/Batch.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/CullPass.h"
#include "render/gl/scene/SceneBuilder.h"
#include "render/layout/LayoutCladogram.h"
#include "tree/model/Tree.h"

#include <boost/core/noncopyable.hpp>

#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

using Kelmar::Math::Vector3d;

/// Sets whether labels are drawn, for one pass; sets it to true at the end of the scope.
class DrawTextScope : private boost::noncopyable
{
public:
  DrawTextScope(DisplaySettings& settings, bool drawText) : _settings(settings)
  {
    _settings.drawText(drawText);
  }
  ~DrawTextScope() { _settings.drawText(true); }

private:
  DisplaySettings& _settings;
};

/// Has everything drawn in high detail until the end of the scope, then sets the user's choice
/// again.
class HighLodScope : private boost::noncopyable
{
public:
  explicit HighLodScope(DisplaySettings& settings)
      : _settings(settings), _before(settings.alwaysUseHighLod())
  {
    _settings.alwaysUseHighLod(true);
  }
  ~HighLodScope() { _settings.alwaysUseHighLod(_before); }

private:
  DisplaySettings& _settings;
  bool _before;
};

/// Until the end of the scope, what is drawn leaves the frame opaque as it was cleared. Blending
/// would make it translucent, and a compositor then shows through it what lies behind the window.
class OpaqueScope : private boost::noncopyable
{
public:
  OpaqueScope() { glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE); }
  ~OpaqueScope() { glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE); }
};

#ifndef NDEBUG
// The first one is shown to the user. Its box uncovers the view, which is drawn again, and so on:
// the following ones are only logged.
void requireNoError()
{
  const GLenum error = glGetError();
  if (error == GL_NO_ERROR)
  {
    return;
  }
  const std::string text = "OpenGL error " + std::to_string(error) + " in or before a frame";
  static bool wasShown = false;
  if (!std::exchange(wasShown, true))
  {
    throw std::logic_error(text);
  }
  std::cout << text + "\n" << std::flush;
}
#endif

} // namespace
} // namespace Detail

ViewCladogram::ViewCladogram()
    : _thumbnail([this](const DrawingPass& pass) { _drawAllLines(pass); }), _batch(new Batch)
{
  glewInit();
  glClearColor(0, 0, 0, 1);
}

ViewCladogram::~ViewCladogram() noexcept(false) = default;

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
  const Kelmar::System::LargePages pages; // for layout and scene; frames take small pages
  SceneBuilder builder(tree());
  builder.buildScene(layout->layout(tree()));
  _root = builder.root();
  camera()->horizontalPixelsForText(builder.maximumTextLength() + gapBesideText);
}

void ViewCladogram::resize(unsigned int width, unsigned int height)
{
  const WindowAreas areas(width, height);
  _thumbnail.resize(areas.thumbnail);
  _mainViewport = areas.main;
  if (tree() && !_mainViewport.empty())
  {
    camera()->updateZoomInformation(tree()->getNumberOfLeafNodes(), mostPixelsPerLeaf,
                                    _mainViewport);
  }
}

void ViewCladogram::prepare()
{
  if (!_mainViewport.empty())
  {
    _thumbnail.prepare();
  }
}

void ViewCladogram::render()
{
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  if (!_mainViewport.empty())
  {
    // Before the colour mask, since the picture is opaque.
    _thumbnail.prepare();
    const Detail::OpaqueScope opaque;
    const DrawingPass pass = mainPass(*camera(), _mainViewport);
    _thumbnail.render(pass);
    _renderMainView(pass);
  }
  glFlush();
#ifndef NDEBUG
  Detail::requireNoError();
#endif
}

void ViewCladogram::_drawAllLines(const DrawingPass& pass)
{
  const Detail::HighLodScope highLod(*settings());
  _cullAndDraw(pass, false);
}

void ViewCladogram::_renderMainView(const DrawingPass& pass)
{
  glEnable(GL_DEPTH_TEST);
  applyPass(pass);
  _cullAndDraw(pass, true);
}

void ViewCladogram::_cullAndDraw(const DrawingPass& pass, bool drawText)
{
  const boost::intrusive_ptr<State> state(new State(pass));
  state->batch(_batch);
  RenderGraph graph;
  {
    const Detail::DrawTextScope text(*settings(), drawText);
    graph = cullPass(_root.get(), *state, *camera(), *settings());
  }
  graph.render(*state);
}

void ViewCladogram::handleNavigation(const MouseEvent& current, const MouseEvent& last)
{
  using Detail::Vector3d;
  if (_mainViewport.empty())
  {
    return;
  }
  const DrawingPass pass = mainPass(*camera(), _mainViewport);
  const Kelmar::Math::Matrix44d toWorld = inverseOrThrow(pass.projection * pass.modelView);
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
