#include "render/gl/draw/Text.h"

#include "render/gl/device/OpenGL.h"
#include "render/gl/draw/State.h"

#include <algorithm>

namespace orvex::render::gl
{
namespace Detail
{

// From the font's 32 pixels to an em of 15.
constexpr float labelScale = 0.46875f;

constexpr float white[16] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
// The bitmap's first row is the top of the glyph.
constexpr float corners[8] = {0, 1, 1, 1, 1, 0, 0, 0};

} // namespace Detail

Text::Text(const Point2D<double>& position, const std::string& text,
           const boost::intrusive_ptr<Font>& font)
    : _text(text), _font(font), _position(position)
{
  if (_font)
  {
    _layOut();
  }
}

void Text::_layOut()
{
  _glyphs.reserve(_text.size());
  _vertices = std::make_unique<float[]>(8 * _text.size());
  float pen = 0.0f;
  float* quad = _vertices.get();
  char previous = 0;
  for (const char c : _text)
  {
    Glyph* glyph = _font->getGlyph(c);
    if (!glyph)
    {
      continue;
    }
    _glyphs.emplace_back(glyph);
    double bearingX = 0.0;
    double bearingY = 0.0;
    glyph->horizontalBearing(bearingX, bearingY);
    const float x0 = static_cast<float>(bearingX) * Detail::labelScale + pen;
    const float y0 = static_cast<float>(bearingY) * Detail::labelScale;
    const float x1 = x0 + static_cast<float>(glyph->width()) * Detail::labelScale;
    const float y1 = y0 + static_cast<float>(glyph->height()) * Detail::labelScale;
    const float vertices[8] = {x0, y0, x1, y0, x1, y1, x0, y1};
    quad = std::copy(std::begin(vertices), std::end(vertices), quad);

    pen += static_cast<float>(glyph->horizontalAdvance()) * Detail::labelScale;
    // A pair's kerning is known once its second glyph stands, and moves the one after it.
    if (previous != 0)
    {
      double kerningX = 0.0;
      double kerningY = 0.0;
      _font->getKerning(previous, c, kerningX, kerningY);
      pen += static_cast<float>(kerningX) * Detail::labelScale;
    }
    _boundingBox.add(Point2D<double>{x0, y0});
    _boundingBox.add(Point2D<double>{x1, y1});
    previous = c;
  }
}

Kelmar::Math::Vector3d Text::anchorScreenSpace(const Kelmar::Math::Matrix44d& localToScreen) const
{
  return localToScreen * Kelmar::Math::Vector3d(_position.x, _position.y, 0.0);
}

Box2D Text::getBoundingBoxScreenSpace(const Kelmar::Math::Matrix44d& localToScreen) const
{
  const Kelmar::Math::Vector3d anchor = anchorScreenSpace(localToScreen);
  Box2D box;
  box.minimum = {anchor[0] + _boundingBox.minimum.x, anchor[1] + _boundingBox.minimum.y};
  box.maximum = {anchor[0] + _boundingBox.maximum.x, anchor[1] + _boundingBox.maximum.y};
  return box;
}

void Text::render(State& state) const
{
  const Kelmar::Math::Vector3d anchor = anchorScreenSpace(state.getLocalToScreenMatrix());
  const double centre = (_boundingBox.maximum.y + _boundingBox.minimum.y) * 0.5;

  glPushMatrix();
  glTranslated(anchor[0], anchor[1] - centre, 0.0);
  for (std::size_t i = 0; i < _glyphs.size(); ++i)
  {
    glVertexPointer(2, GL_FLOAT, 0, quad(i));
    glColorPointer(4, GL_FLOAT, 0, Detail::white);
    glTexCoordPointer(2, GL_FLOAT, 0, Detail::corners);
    _glyphs[i]->apply();
    glDrawArrays(GL_QUADS, 0, 4);
  }
  glPopMatrix();
}

} // namespace orvex::render::gl
