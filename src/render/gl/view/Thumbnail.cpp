#include "render/gl/view/Thumbnail.h"

#include "foundation/progress/Work.h"
#include "render/gl/device/ClientArrays.h"
#include "render/gl/device/FrameBufferObject.h"
#include "render/gl/device/FrameBufferScope.h"
#include "render/gl/device/Image.h"
#include "render/gl/device/OpenGL.h"
#include "render/gl/device/Texture2D.h"
#include "render/gl/device/TextureUpload.h"
#include "render/gl/draw/ApplyPass.h"
#include "render/layout/Box2D.h"
#include "tree/model/OpeningStages.h"

#include <array>
#include <iostream>
#include <utility>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

struct Colour
{
  float red, green, blue, alpha;
};

constexpr Colour white{1.0f, 1.0f, 1.0f, 1.0f};
constexpr Colour rectangleFill{0.2f, 0.2f, 0.9f, 0.3f};
constexpr Colour rectangleOutline{0.2f, 0.2f, 0.9f, 1.0f};

/// Four corners with x, y and z, from the lower left counter-clockwise.
using Quad = std::array<float, 12>;

Quad makeQuad(const Box2D& box, float z)
{
  const auto left = static_cast<float>(box.minimum.x);
  const auto right = static_cast<float>(box.maximum.x);
  const auto bottom = static_cast<float>(box.minimum.y);
  const auto top = static_cast<float>(box.maximum.y);
  return {left, bottom, z, right, bottom, z, right, top, z, left, top, z};
}

// Needs the vertex and colour arrays enabled.
void drawQuad(const Quad& quad, const Colour& colour)
{
  std::array<Colour, 4> colours{};
  colours.fill(colour);
  glVertexPointer(3, GL_FLOAT, 0, quad.data());
  glColorPointer(4, GL_FLOAT, 0, colours.data());
  glDrawArrays(GL_QUADS, 0, 4);
}

void blend()
{
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

/// Directs all drawing into a framebuffer object until the end of the scope. Changes of viewport,
/// depth and line state in between are undone there.
class OffscreenScope : private boost::noncopyable
{
public:
  explicit OffscreenScope(FrameBufferObject& frameBuffer) : _frameBuffer(frameBuffer)
  {
    _frameBuffer.bind();
    glPushAttrib(GL_VIEWPORT_BIT | GL_STENCIL_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_LIGHTING_BIT |
                 GL_POLYGON_STIPPLE_BIT | GL_LINE_BIT | GL_POINT_BIT);
  }
  ~OffscreenScope()
  {
    _frameBuffer.unbind();
    glPopAttrib();
  }

private:
  FrameBufferObject& _frameBuffer;
};

void drawTexture(Texture2D& picture, const Viewport& column)
{
  const float right = textureEnd(column.width);
  const float top = textureEnd(column.height);
  const std::array<float, 8> corners{0, 0, right, 0, right, top, 0, top};
  glPushAttrib(GL_TEXTURE_BIT | GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_POLYGON_BIT);
  glEnable(GL_TEXTURE_2D);
  glDisable(GL_LIGHTING);
  blend();
  picture.apply();
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  {
    const ClientArrays arrays{GL_VERTEX_ARRAY, GL_COLOR_ARRAY, GL_TEXTURE_COORD_ARRAY};
    glTexCoordPointer(2, GL_FLOAT, 0, corners.data());
    drawQuad(makeQuad({{0.0, 0.0}, {1.0, 1.0}}, -1.0f), white);
  }
  glPopAttrib();
}

void drawShownPart(const Box2D& part)
{
  const Quad quad = makeQuad(part, 0.0f);
  blend();
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  const ClientArrays arrays{GL_VERTEX_ARRAY, GL_COLOR_ARRAY};
  drawQuad(quad, rectangleFill);
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  drawQuad(quad, rectangleOutline);
}

} // namespace
} // namespace Detail

Thumbnail::Thumbnail(DrawTree drawTree) : _drawTree(std::move(drawTree)) {}

Thumbnail::~Thumbnail() = default;

void Thumbnail::resize(const Viewport& column)
{
  _column = column;
  _isDirty = true;
}

void Thumbnail::prepare()
{
  if (_isDirty)
  {
    _createPicture();
  }
}

void Thumbnail::render(const DrawingPass& mainPass)
{
  applyPass(thumbnailPass(_column));
  if (_picture)
  {
    Detail::drawTexture(*_picture, _column);
  }
  Detail::drawShownPart(shownPart(mainPass));
}

void Thumbnail::_createPicture()
{
  // Set first: without support for framebuffer objects, the next try follows the next resize.
  _isDirty = false;
  if (!FrameBufferObject::isSupported())
  {
    return;
  }
  // What is bound now is what the frame is drawn into.
  const FrameBufferScope frame;
  _target.remove();
  _frameBuffer = std::make_unique<FrameBufferObject>();
  if (_picture)
  {
    _picture->releaseGLObjects();
    _picture = nullptr;
  }
  // In a window of a few pixels the column is empty, and OpenGL allows no empty framebuffer.
  if (!_column.empty())
  {
    _frameBuffer->attachTexture(_target, _column.width, _column.height, GL_RGBA8);
    if (_frameBuffer->isComplete())
    {
      _drawPicture();
      return;
    }
    std::cout << "The thumbnail is empty: this OpenGL draws no picture of its size.\n"
              << std::flush;
  }
}

void Thumbnail::_drawPicture()
{
  const Kelmar::Progress::Work work(OpeningStages::picture, 1);
  const Detail::OffscreenScope offscreen(*_frameBuffer);
  glDisable(GL_DEPTH_TEST);
  glDepthMask(GL_FALSE);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  const DrawingPass pass = thumbnailPass(_column);
  applyPass(pass);
  _drawTree(pass);
  const boost::intrusive_ptr<Image> image(new Image);
  image->init(_column.width, _column.height, GL_RGBA);
  // The texture uploads the pixels when it is first applied, which is after they are read here.
  _picture = new Texture2D(image);
  glReadPixels(0, 0, static_cast<GLsizei>(_column.width), static_cast<GLsizei>(_column.height),
               GL_RGBA, GL_UNSIGNED_BYTE, image->buffer());
}

} // namespace orvex::render::gl
