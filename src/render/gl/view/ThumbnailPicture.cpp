#include "render/gl/view/ThumbnailPicture.h"

#include "foundation/math/InverseMatrix.h"
#include "render/camera/DrawingPass.h"
#include "render/gl/device/ClientArrays.h"
#include "render/gl/device/FrameBufferObject.h"
#include "render/gl/device/Image.h"
#include "render/gl/device/OpenGL.h"
#include "render/gl/device/Texture2D.h"

#include <array>

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

} // namespace
} // namespace Detail

OffscreenDrawing::OffscreenDrawing(FrameBufferObject& frameBuffer) : _frameBuffer(frameBuffer)
{
  _frameBuffer.bind();
  glPushAttrib(GL_VIEWPORT_BIT | GL_STENCIL_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_LIGHTING_BIT |
               GL_POLYGON_STIPPLE_BIT | GL_LINE_BIT | GL_POINT_BIT);
}

OffscreenDrawing::~OffscreenDrawing()
{
  _frameBuffer.unbind();
  glPopAttrib();
}

void readThumbnailPicture(Image& image)
{
  glReadPixels(0, 0, static_cast<GLsizei>(image.width()), static_cast<GLsizei>(image.height()),
               GL_RGBA, GL_UNSIGNED_BYTE, image.buffer());
}

void drawThumbnailPicture(Texture2D& picture)
{
  constexpr std::array<float, 8> corners{0, 0, 1, 0, 1, 1, 0, 1};
  glPushAttrib(GL_TEXTURE_BIT | GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_POLYGON_BIT);
  glEnable(GL_TEXTURE_2D);
  glDisable(GL_LIGHTING);
  Detail::blend();
  picture.apply();
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  {
    const ClientArrays arrays{GL_VERTEX_ARRAY, GL_COLOR_ARRAY, GL_TEXTURE_COORD_ARRAY};
    glTexCoordPointer(2, GL_FLOAT, 0, corners.data());
    Detail::drawQuad(Detail::makeQuad({{0.0, 0.0}, {1.0, 1.0}}, -1.0f), Detail::white);
  }
  glPopAttrib();
}

Box2D shownPart(const DrawingPass& mainPass)
{
  using Kelmar::Math::Vector3d;
  const Kelmar::Math::Matrix44d toWorld = inverseOrThrow(mainPass.computeLocalToScreenMatrix());
  const Viewport& area = mainPass.viewport;
  // The second corner is not moved by the viewport's origin: the rectangle is defined so.
  const Vector3d a = toWorld * Vector3d(area.x, area.y, 0.0);
  const Vector3d b = toWorld * Vector3d(area.width, area.height, 0.0);
  const double dx = b[0] - a[0];
  const double dy = b[1] - a[1];
  // Not simply b: a + (b - a) is rounded and can differ from b, and the corners are defined by it.
  return {{a[0], a[1]}, {a[0] + dx, a[1] + dy}};
}

void drawShownPart(const Box2D& part)
{
  const Detail::Quad quad = Detail::makeQuad(part, 0.0f);
  Detail::blend();
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  const ClientArrays arrays{GL_VERTEX_ARRAY, GL_COLOR_ARRAY};
  Detail::drawQuad(quad, Detail::rectangleFill);
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  Detail::drawQuad(quad, Detail::rectangleOutline);
}

} // namespace orvex::render::gl
