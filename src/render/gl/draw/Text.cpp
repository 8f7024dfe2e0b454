#include "render/gl/draw/Text.h"

#include "render/gl/device/OpenGL.h"
#include "render/gl/device/TextureUpload.h"
#include "render/gl/draw/State.h"

#include <algorithm>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

// From the font's 32 pixels to an em of 15.
constexpr float labelScale = 0.46875f;

constexpr float white[16] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};

// The bitmap's first row is the top of the glyph.
std::array<float, 8> textureCorners(const Glyph& glyph)
{
  const float right = textureEnd(glyph.width());
  const float bottom = textureEnd(glyph.height());
  return {0, bottom, right, bottom, right, 0, 0, 0};
}

} // namespace
} // namespace Detail

static_assert(sizeof(Text) == 80);

Text::Text(const Point2D<double>& position, const std::string& text,
           const boost::intrusive_ptr<Font>& font)
    : _position(position), _font(font), _text(text.data(), text.size())
{
  _forEachQuad(
      [this](const Quad& quad)
      {
        _minimum = {std::min(_minimum.x, quad.corners[0]), std::min(_minimum.y, quad.corners[1])};
        _maximum = {std::max(_maximum.x, quad.corners[4]), std::max(_maximum.y, quad.corners[5])};
      });
}

template <class Action>
void Text::_forEachQuad(Action action) const
{
  float pen = 0.0f;
  char previous = 0;
  for (const char c : _text)
  {
    Glyph* glyph = _font ? _font->getGlyph(c) : nullptr;
    if (!glyph)
    {
      continue;
    }
    double bearingX = 0.0;
    double bearingY = 0.0;
    glyph->horizontalBearing(bearingX, bearingY);
    const float x0 = static_cast<float>(bearingX) * Detail::labelScale + pen;
    const float y0 = static_cast<float>(bearingY) * Detail::labelScale;
    const float x1 = x0 + static_cast<float>(glyph->width()) * Detail::labelScale;
    const float y1 = y0 + static_cast<float>(glyph->height()) * Detail::labelScale;
    action(Quad{glyph, {x0, y0, x1, y0, x1, y1, x0, y1}});

    pen += static_cast<float>(glyph->horizontalAdvance()) * Detail::labelScale;
    // The kerning of a pair moves the glyph that follows the pair.
    if (previous != 0)
    {
      double kerningX = 0.0;
      double kerningY = 0.0;
      _font->getKerning(previous, c, kerningX, kerningY);
      pen += static_cast<float>(kerningX) * Detail::labelScale;
    }
    previous = c;
  }
}

std::vector<Text::Quad> Text::quads() const
{
  std::vector<Quad> all;
  _forEachQuad([&all](const Quad& quad) { all.push_back(quad); });
  return all;
}

Box2D Text::boundingBox() const
{
  Box2D box;
  if (_minimum.x <= _maximum.x)
  {
    box.minimum = {_minimum.x, _minimum.y};
    box.maximum = {_maximum.x, _maximum.y};
  }
  return box;
}

Kelmar::Math::Vector3d Text::anchorScreenSpace(const Kelmar::Math::Matrix44d& localToScreen) const
{
  return localToScreen * Kelmar::Math::Vector3d(_position.x, _position.y, 0.0);
}

Box2D Text::getBoundingBoxScreenSpace(const Kelmar::Math::Matrix44d& localToScreen) const
{
  const Kelmar::Math::Vector3d anchor = anchorScreenSpace(localToScreen);
  Box2D box = boundingBox();
  box.minimum = {anchor[0] + box.minimum.x, anchor[1] + box.minimum.y};
  box.maximum = {anchor[0] + box.maximum.x, anchor[1] + box.maximum.y};
  return box;
}

void Text::render(State& state) const
{
  const Kelmar::Math::Vector3d anchor = anchorScreenSpace(state.getLocalToScreenMatrix());
  const Box2D box = boundingBox();
  const double centre = (box.maximum.y + box.minimum.y) * 0.5;

  glPushMatrix();
  glTranslated(anchor[0], anchor[1] - centre, 0.0);
  _forEachQuad(
      [](const Quad& quad)
      {
        const std::array<float, 8> corners = Detail::textureCorners(*quad.glyph);
        glVertexPointer(2, GL_FLOAT, 0, quad.corners.data());
        glColorPointer(4, GL_FLOAT, 0, Detail::white);
        glTexCoordPointer(2, GL_FLOAT, 0, corners.data());
        quad.glyph->apply();
        glDrawArrays(GL_QUADS, 0, 4);
      });
  glPopMatrix();
}

} // namespace orvex::render::gl
