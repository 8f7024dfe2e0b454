#pragma once

#include "foundation/math/Matrix44.h"
#include "render/camera/DrawingPass.h"
#include "render/camera/View.h"
#include "render/camera/Viewport.h"
#include "render/gl/device/ObjectName.h"
#include "render/gl/scene/Node.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <memory>

namespace orvex::render::gl
{

class Batch;
class FrameBufferObject;
class State;
class Texture2D;

/// Shows one tree as a cladogram: a thumbnail column at the left, the main area right of it.
///
/// The scene is built once for each tree; a frame chooses parts of it and draws them. Constructor,
/// prepare, render and destructor need the widget's context current, the other operations need
/// none. While the main area has no width or no height, a frame is only cleared and navigation does
/// nothing.
class ViewCladogram : public View
{
public:
  ViewCladogram();
  ~ViewCladogram() noexcept(false) override;

  void handleNavigation(const MouseEvent& current, const MouseEvent& last) override;
  void handleZoom(double amount) override;
  void resize(unsigned int width, unsigned int height) override;
  void prepare() override;
  void render() override;
  void update() override;

  /// From world coordinates to pixels of the main area.
  Kelmar::Math::Matrix44d viewMatrix() const;

  /// The scene; null until update() has built one.
  const boost::intrusive_ptr<Node>& root() const { return _root; }
  const Viewport& mainViewport() const { return _mainViewport; }
  const Viewport& thumbnailViewport() const { return _thumbnailViewport; }

private:
  void _createThumbnailImage();
  void _drawThumbnailImage();
  DrawingPass _thumbnailPass() const;
  // Both take the camera's matrix of this frame.
  void _renderThumbnailView(const Kelmar::Math::Matrix44d& matrix);
  void _renderMainView(const Kelmar::Math::Matrix44d& matrix);
  void _cullAndDraw(State& state, bool drawText);

  boost::intrusive_ptr<Node> _root;
  Viewport _mainViewport;
  Kelmar::Math::Matrix44d _mainProjection;
  Viewport _thumbnailViewport;
  Kelmar::Math::Matrix44d _thumbnailProjection;
  // The picture must be made again before it is next drawn.
  bool _thumbnailDirty = true;
  // The colour target of the framebuffer object.
  TextureName _thumbnailTextureId;
  std::unique_ptr<FrameBufferObject> _frameBuffer;
  // The finished picture; null without framebuffer support.
  boost::intrusive_ptr<Texture2D> _thumbnailTexture;
  // What all passes draw with.
  boost::intrusive_ptr<Batch> _batch;
};

} // namespace orvex::render::gl
