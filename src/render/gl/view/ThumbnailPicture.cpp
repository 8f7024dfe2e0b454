// The thumbnail column of ViewCladogram: the picture of the whole tree, made once for each size,
// and the rectangle over the part of it that the main area shows.

#include "foundation/math/InverseMatrix.h"
#include "render/gl/device/FrameBufferObject.h"
#include "render/gl/device/Image.h"
#include "render/gl/device/OpenGL.h"
#include "render/gl/device/Texture2D.h"
#include "render/gl/device/TextureUpload.h"
#include "render/gl/view/Passes.h"
#include "render/gl/view/ViewCladogram.h"

#include <boost/core/noncopyable.hpp>

#include <algorithm>
#include <array>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

using Kelmar::Math::Matrix44d;
using Kelmar::Math::Vector3d;

struct Colour
{
  float red, green, blue, alpha;
};

constexpr Colour white{1.0f, 1.0f, 1.0f, 1.0f};
constexpr Colour rectangleFill{0.2f, 0.2f, 0.9f, 0.3f};
constexpr Colour rectangleOutline{0.2f, 0.2f, 0.9f, 1.0f};

// Takes the unit square to the whole column, under the column's projection.
const Vector3d thumbnailShift(-0.5, -0.5, -2.5);

/// Drawing into a framebuffer object, for a scope.
class OffscreenDrawing : private boost::noncopyable
{
public:
  explicit OffscreenDrawing(FrameBufferObject& frameBuffer) : _frameBuffer(frameBuffer)
  {
    _frameBuffer.bind();
    glPushAttrib(GL_VIEWPORT_BIT | GL_STENCIL_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_LIGHTING_BIT |
                 GL_POLYGON_STIPPLE_BIT | GL_LINE_BIT | GL_POINT_BIT);
  }
  ~OffscreenDrawing()
  {
    _frameBuffer.unbind();
    glPopAttrib();
  }

private:
  FrameBufferObject& _frameBuffer;
};

/// Everything in high detail, for a scope; then the user's choice again.
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

/// Four corners with x, y and z, from the lower left counter-clockwise.
using Quad = std::array<float, 12>;

Quad makeQuad(double x0, double y0, double x1, double y1, float z)
{
  const auto left = static_cast<float>(x0);
  const auto right = static_cast<float>(x1);
  const auto bottom = static_cast<float>(y0);
  const auto top = static_cast<float>(y1);
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

void drawPicture(Texture2D& texture)
{
  constexpr std::array<float, 8> corners{0, 0, 1, 0, 1, 1, 0, 1};
  glPushAttrib(GL_TEXTURE_BIT | GL_ENABLE_BIT | GL_LIGHTING_BIT | GL_POLYGON_BIT);
  glEnable(GL_TEXTURE_2D);
  glDisable(GL_LIGHTING);
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  texture.apply();
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_COLOR_ARRAY);
  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  glTexCoordPointer(2, GL_FLOAT, 0, corners.data());
  drawQuad(makeQuad(0.0, 0.0, 1.0, 1.0, -1.0f), white);
  glDisableClientState(GL_VERTEX_ARRAY);
  glDisableClientState(GL_COLOR_ARRAY);
  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
  glPopAttrib();
}

void drawRectangle(const Quad& quad)
{
  glEnable(GL_BLEND);
  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  glEnableClientState(GL_VERTEX_ARRAY);
  glEnableClientState(GL_COLOR_ARRAY);
  drawQuad(quad, rectangleFill);
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  drawQuad(quad, rectangleOutline);
  glDisableClientState(GL_VERTEX_ARRAY);
  glDisableClientState(GL_COLOR_ARRAY);
}

} // namespace
} // namespace Detail

void ViewCladogram::_createThumbnailImage()
{
  // At once: without support for framebuffer objects there is no second try before the next resize.
  _thumbnailDirty = false;
  if (!FrameBufferObject::isSupported())
  {
    return;
  }
  if (_thumbnailTextureId != 0)
  {
    glDeleteTextures(1, &_thumbnailTextureId);
    _thumbnailTextureId = 0;
  }
  _frameBuffer = std::make_unique<FrameBufferObject>();
  // A window of a few pixels has no column, and OpenGL no framebuffer without pixels.
  if (!_thumbnailViewport.empty())
  {
    _attachThumbnailTexture();
  }
  if (_thumbnailTexture)
  {
    _thumbnailTexture->releaseGLObjects();
    _thumbnailTexture = nullptr;
  }
  if (!_thumbnailViewport.empty())
  {
    _drawThumbnailPicture();
  }
}

void ViewCladogram::_attachThumbnailTexture()
{
  _frameBuffer->bind();
  glGenTextures(1, &_thumbnailTextureId);
  glBindTexture(GL_TEXTURE_2D, _thumbnailTextureId);
  setTextureParameters();
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, static_cast<GLsizei>(_thumbnailViewport.width),
               static_cast<GLsizei>(_thumbnailViewport.height), 0, GL_RGBA, GL_UNSIGNED_BYTE,
               nullptr);
  glFramebufferTexture2DEXT(GL_FRAMEBUFFER_EXT, GL_COLOR_ATTACHMENT0_EXT, GL_TEXTURE_2D,
                            _thumbnailTextureId, 0);
}

void ViewCladogram::_drawThumbnailPicture()
{
  const Detail::OffscreenDrawing offscreen(*_frameBuffer);
  glDisable(GL_DEPTH_TEST);
  glDepthMask(GL_FALSE);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  applyViewport(_thumbnailViewport);
  const Detail::Matrix44d modelView = Detail::Matrix44d::translation(Detail::thumbnailShift);
  applyMatrices(_thumbnailProjection, modelView);
  {
    const Detail::HighLodGuard highLod(*settings());
    _cullAndDraw(*makePassState(_thumbnailViewport, _thumbnailProjection, modelView), false);
  }
  const boost::intrusive_ptr<Image> image(new Image);
  image->init(_thumbnailViewport.width, _thumbnailViewport.height, GL_RGBA);
  // Uploads the pixels when it is first applied, which is after they are read.
  _thumbnailTexture = new Texture2D(image);
  glReadPixels(0, 0, static_cast<GLsizei>(image->width()), static_cast<GLsizei>(image->height()),
               GL_RGBA, GL_UNSIGNED_BYTE, image->buffer());
}

void ViewCladogram::_renderThumbnailView(const Kelmar::Math::Matrix44d& matrix)
{
  if (_thumbnailDirty)
  {
    _createThumbnailImage();
  }
  applyViewport(_thumbnailViewport);
  applyMatrices(_thumbnailProjection, Detail::Matrix44d::translation(Detail::thumbnailShift));
  if (_thumbnailTexture)
  {
    Detail::drawPicture(*_thumbnailTexture);
  }
  const Box2D shown = _shownPart(matrix);
  Detail::drawRectangle(
      Detail::makeQuad(shown.minimum.x, shown.minimum.y, shown.maximum.x, shown.maximum.y, 0.0f));
}

Box2D ViewCladogram::_shownPart(const Kelmar::Math::Matrix44d& matrix) const
{
  using Detail::Vector3d;
  const Detail::Matrix44d toWorld =
      inverseOrThrow(_mainViewport.computeWindowMatrix() * _mainProjection * matrix);
  // The far corner is not offset by the viewport's origin.
  const Vector3d a = toWorld * Vector3d(_mainViewport.x, _mainViewport.y, 0.0);
  const Vector3d b = toWorld * Vector3d(_mainViewport.width, _mainViewport.height, 0.0);
  const double dx = b[0] - a[0];
  const double dy = b[1] - a[1];
  Box2D shown;
  shown.minimum = {a[0], a[1]};
  shown.maximum = {a[0] + dx, a[1] + dy};
  return shown;
}

} // namespace orvex::render::gl
