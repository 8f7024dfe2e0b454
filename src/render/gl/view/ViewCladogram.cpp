#include "render/gl/view/ViewCladogram.h"

#include "foundation/math/InverseMatrix.h"
#include "foundation/progress/Work.h"
#include "foundation/system/LargePages.h"
#include "render/camera/MouseEvent.h"
#include "render/gl/device/FrameBufferGuard.h"
#include "render/gl/device/FrameBufferObject.h"
#include "render/gl/device/Image.h"
#include "render/gl/device/OpenGL.h"
#include "render/gl/device/Texture2D.h"
#include "render/gl/draw/ApplyPass.h"
#include "render/gl/draw/Batch.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/CullPass.h"
#include "render/gl/scene/SceneBuilder.h"
#include "render/gl/view/ThumbnailPicture.h"
#include "render/layout/LayoutCladogram.h"
#include "tree/model/OpeningStages.h"
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

using Kelmar::Math::Matrix44d;
using Kelmar::Math::Vector3d;

constexpr double thumbnailShare = 0.1;
// With the column's projection, this makes the unit square fill the whole column.
const Vector3d thumbnailShift(-0.5, -0.5, -2.5);

/// Sets whether labels are drawn, for one pass; sets it to true at the end of the scope.
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

/// Has everything drawn in high detail until the end of the scope, then sets the user's choice
/// again.
class HighLodGuard : private boost::noncopyable
{
public:
  explicit HighLodGuard(DisplaySettings& settings)
      : _settings(settings), _before(settings.alwaysUseHighLod())
  {
    _settings.alwaysUseHighLod(true);
  }
  ~HighLodGuard() { _settings.alwaysUseHighLod(_before); }

private:
  DisplaySettings& _settings;
  bool _before;
};

/// Until the end of the scope, what is drawn leaves the frame opaque as it was cleared. Blending
/// would make it translucent, and a compositor then shows through it what lies behind the window.
class OpaqueDrawing : private boost::noncopyable
{
public:
  OpaqueDrawing() { glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_FALSE); }
  ~OpaqueDrawing() { glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE); }
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

ViewCladogram::ViewCladogram() : _batch(new Batch)
{
  glewInit();
  glClearColor(0, 0, 0, 1);
}

// OpenGL objects of the thumbnail that are not deleted here are deleted with the widget's context.
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
  const Kelmar::System::LargePages pages;
  SceneBuilder builder(tree());
  builder.buildScene(layout->layout(tree()));
  _root = builder.root();
  camera()->horizontalPixelsForText(builder.maximumTextLength() + gapBesideText);
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
  _mainProjection = mainProjection(_mainViewport);
  if (tree())
  {
    camera()->updateZoomInformation(tree()->getNumberOfLeafNodes(), mostPixelsPerLeaf,
                                    _mainViewport);
  }
}

void ViewCladogram::prepare()
{
  if (_thumbnailDirty && !_mainViewport.empty())
  {
    _createThumbnailImage();
  }
}

void ViewCladogram::render()
{
  const Kelmar::Math::Matrix44d matrix = viewMatrix();
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  if (!_mainViewport.empty())
  {
    // The thumbnail comes first, so that its picture is finished before the main area is drawn.
    _renderThumbnailView(matrix);
    _renderMainView(matrix);
  }
  glFlush();
#ifndef NDEBUG
  Detail::requireNoError();
#endif
}

void ViewCladogram::_createThumbnailImage()
{
  // Set first: without support for framebuffer objects, the next try follows the next resize.
  _thumbnailDirty = false;
  if (!FrameBufferObject::isSupported())
  {
    return;
  }
  // What is bound now is what the frame is drawn into.
  const FrameBufferGuard frame;
  _thumbnailTextureId.remove();
  _frameBuffer = std::make_unique<FrameBufferObject>();
  // In a window of a few pixels the column is empty, and OpenGL allows no empty framebuffer.
  if (!_thumbnailViewport.empty())
  {
    _frameBuffer->attachTexture(_thumbnailTextureId, _thumbnailViewport.width,
                                _thumbnailViewport.height);
  }
  if (_thumbnailTexture)
  {
    _thumbnailTexture->releaseGLObjects();
    _thumbnailTexture = nullptr;
  }
  if (!_thumbnailViewport.empty())
  {
    _drawThumbnailImage();
  }
}

void ViewCladogram::_drawThumbnailImage()
{
  const OffscreenDrawing offscreen(*_frameBuffer);
  glDisable(GL_DEPTH_TEST);
  glDepthMask(GL_FALSE);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  const DrawingPass pass = _thumbnailPass();
  applyPass(pass);
  {
    const Detail::HighLodGuard highLod(*settings());
    const boost::intrusive_ptr<State> state(new State(pass));
    // All nodes are visited, then all are drawn.
    const std::size_t nodes = tree() ? tree()->getNumberOfNodes() : 0;
    Kelmar::Progress::Work work(OpeningStages::picture, 2 * nodes);
    state->work(&work);
    _cullAndDraw(*state, false);
  }
  const boost::intrusive_ptr<Image> image(new Image);
  image->init(_thumbnailViewport.width, _thumbnailViewport.height, GL_RGBA);
  // The texture uploads the pixels when it is first applied, which is after they are read here.
  _thumbnailTexture = new Texture2D(image);
  readThumbnailPicture(*image);
}

DrawingPass ViewCladogram::_thumbnailPass() const
{
  return {_thumbnailViewport, _thumbnailProjection,
          Detail::Matrix44d::translation(Detail::thumbnailShift)};
}

void ViewCladogram::_renderThumbnailView(const Kelmar::Math::Matrix44d& matrix)
{
  if (_thumbnailDirty)
  {
    _createThumbnailImage();
  }
  const Detail::OpaqueDrawing opaque;
  applyPass(_thumbnailPass());
  if (_thumbnailTexture)
  {
    drawThumbnailPicture(*_thumbnailTexture);
  }
  drawShownPart(shownPart({_mainViewport, _mainProjection, matrix}));
}

void ViewCladogram::_renderMainView(const Kelmar::Math::Matrix44d& matrix)
{
  const Detail::OpaqueDrawing opaque;
  glEnable(GL_DEPTH_TEST);
  const DrawingPass pass{_mainViewport, _mainProjection, matrix};
  applyPass(pass);
  _cullAndDraw(*boost::intrusive_ptr<State>(new State(pass)), true);
}

void ViewCladogram::_cullAndDraw(State& state, bool drawText)
{
  state.batch(_batch);
  RenderGraph graph;
  {
    const Detail::DrawTextGuard guard(*settings(), drawText);
    graph = cullPass(_root.get(), state, *camera(), *settings());
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
