#pragma once

#include "render/layout/Box2D.h"

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex::render
{
struct DrawingPass;
struct Viewport;
} // namespace orvex::render

namespace orvex::render::gl
{

class FrameBufferObject;
class Image;
class Texture2D;

/// Directs all drawing into a framebuffer object until the end of the scope. Changes of viewport,
/// depth and line state in between are undone there.
class OffscreenDrawing : private boost::noncopyable
{
public:
  explicit OffscreenDrawing(FrameBufferObject& frameBuffer);
  ~OffscreenDrawing();

private:
  FrameBufferObject& _frameBuffer;
};

/// Copies what the current framebuffer holds into an image of the area's size in GL_RGBA.
void readThumbnailPicture(Image& image);

/// Draws a picture onto the world's unit square, under the thumbnail's pass.
void drawThumbnailPicture(Texture2D& picture);

/// The part of the world that the main area's pass shows, as the rectangle on the thumbnail draws
/// it: its right edge follows a formula of its own.
/// \throws std::runtime_error  if the matrices of the pass can't be inverted
Box2D shownPart(const DrawingPass& mainPass);

/// Draws the rectangle over a part of the world, under the thumbnail's pass. Leaves blending on and
/// the polygon mode GL_LINE behind.
void drawShownPart(const Box2D& part);

} // namespace orvex::render::gl
