#pragma once

#include "render/camera/DrawingPass.h"
#include "render/gl/device/ObjectName.h"

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <functional>
#include <memory>

namespace orvex::render::gl
{

class FrameBufferObject;
class Texture2D;

/// A column that shows the whole tree, with a rectangle over what the main area shows.
///
/// The picture of the tree is drawn once for each size, into a texture; a frame draws that texture.
/// Where framebuffer objects are not supported the column stays without a picture.
/// resize needs no context. All else needs the one current that the first picture was made in; what
/// the destructor leaves of OpenGL's objects is deleted with that context.
class Thumbnail : private boost::noncopyable
{
public:
  /// Draws the whole tree, every line of it and no label, into a pass that has been applied.
  using DrawTree = std::function<void(const DrawingPass&)>;

  explicit Thumbnail(DrawTree drawTree);
  ~Thumbnail();

  /// Takes the column's pixels in the window. The picture is made again before it is next drawn.
  void resize(const Viewport& column);
  /// Makes the picture if there is none for the present size.
  void prepare();
  /// Draws the column: the picture that prepare() has made, and the rectangle. Leaves blending on
  /// and the polygon mode GL_LINE behind. \param mainPass  the pass of the main area \throws
  /// std::runtime_error  if the matrices of that pass can't be inverted; the picture has
  ///                             been drawn then
  void render(const DrawingPass& mainPass);

private:
  void _createPicture();
  void _drawPicture();

  DrawTree _drawTree;
  Viewport _column;
  bool _isDirty = true;
  // The colour target of the framebuffer object.
  TextureName _target;
  std::unique_ptr<FrameBufferObject> _frameBuffer;
  // The finished picture; null without framebuffer support.
  boost::intrusive_ptr<Texture2D> _picture;
};

} // namespace orvex::render::gl
