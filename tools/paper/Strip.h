#pragma once

#include "paper/Typeface.h"
#include "render/camera/CameraCladogram.h"
#include "render/camera/Viewport.h"
#include "render/gl/draw/RenderGraph.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <optional>

namespace orvex::render
{
struct DrawingPass;
}

namespace orvex::paper
{

class TreeScene;

/// The whole tree as the viewer would show it at its greatest zoom in a window of any height: each
/// leaf has a row of 18 pixels, and its name its full length. On paper a pixel is what makes a row
/// as high as asked for.
class Strip
{
public:
  /// \param leafHeight  of a row, in points
  /// \param width  in points; none for one that suits the height
  /// \throws std::runtime_error  if the names leave no room for the tree
  Strip(const TreeScene& scene, Typeface& typeface, double leafHeight, std::optional<double> width);

  /// Points to a pixel.
  double scale() const { return _scale; }
  double width() const { return _area.width * _scale; }
  unsigned int leaves() const;
  double height() const { return _area.height * _scale; }
  /// The pixels of all the strip.
  const render::Viewport& area() const { return _area; }

  /// The pass that shows a part of the strip. \param part  of area()
  render::DrawingPass pass(const render::Viewport& part) const;
  /// What a pass shows: all lines and all names.
  /// \param lineWidth  in points
  render::gl::RenderGraph cull(const render::DrawingPass& pass, double lineWidth) const;

private:
  const TreeScene& _scene;
  double _scale;
  render::Viewport _area;
  boost::intrusive_ptr<render::CameraCladogram> _camera;
};

} // namespace orvex::paper
