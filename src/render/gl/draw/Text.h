#pragma once

#include "foundation/math/Matrix44.h"
#include "render/Box2D.h"
#include "render/Point2D.h"
#include "render/gl/draw/Drawable.h"
#include "render/gl/font/Font.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <memory>
#include <string>
#include <vector>

namespace orvex::render::gl
{

/// One label: a textured quad for each character, laid out once. It has the same size on the screen
/// at every zoom, starts at its anchor and is centred on it in height.
class Text : public Drawable
{
public:
  /// \param position  the anchor in world units
  /// \param text  each byte is one character
  /// \param font  null for a label that draws nothing
  Text(const Point2D<double>& position, const std::string& text,
       const boost::intrusive_ptr<Font>& font);

  /// The anchor in window pixels.
  Kelmar::Math::Vector3d anchorScreenSpace(const Kelmar::Math::Matrix44d& localToScreen) const;
  /// The label's box in window pixels. Not centred: centring is for drawing only.
  Box2D getBoundingBoxScreenSpace(const Kelmar::Math::Matrix44d& localToScreen) const;

  /// Needs the vertex, colour and texture coordinate arrays and blending enabled, and matrices
  /// under which one unit is one pixel of the window.
  void render(State& state) const override;

  const std::string& text() const { return _text; }
  const Point2D<double>& position() const { return _position; }
  /// The extent of all quads from the anchor, in pixels; empty without a font or characters.
  const Box2D& boundingBox() const { return _boundingBox; }
  std::size_t numberOfGlyphs() const { return _glyphs.size(); }
  /// Corner x and y of quad \p i from the anchor in pixels: eight numbers, counter-clockwise from
  /// the lower left.
  const float* quad(std::size_t i) const { return &_vertices[8 * i]; }

private:
  void _layOut();

  std::string _text;
  boost::intrusive_ptr<Font> _font;
  Point2D<double> _position;
  Box2D _boundingBox;
  std::vector<boost::intrusive_ptr<Glyph>> _glyphs;
  std::unique_ptr<float[]> _vertices;
};

} // namespace orvex::render::gl
