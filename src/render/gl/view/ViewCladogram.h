#pragma once

#include "foundation/math/Matrix44.h"
#include "render/camera/DrawingPass.h"
#include "render/camera/View.h"
#include "render/gl/scene/Node.h"
#include "render/gl/view/Thumbnail.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex::render::gl
{

class Batch;

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

private:
  void _drawAllLines(const DrawingPass& pass);
  void _renderMainView(const DrawingPass& pass);
  void _cullAndDraw(const DrawingPass& pass, bool drawText);

  boost::intrusive_ptr<Node> _root;
  Viewport _mainViewport;
  Thumbnail _thumbnail;
  // What all passes draw with.
  boost::intrusive_ptr<Batch> _batch;
};

} // namespace orvex::render::gl
