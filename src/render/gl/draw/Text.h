#pragma once

#include "foundation/math/Matrix44.h"
#include "render/gl/draw/Drawable.h"
#include "render/gl/font/Font.h"
#include "render/layout/Box2D.h"
#include "render/layout/Point2D.h"

#include <boost/container/string.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <array>
#include <limits>
#include <string>
#include <vector>

namespace orvex::render::gl
{

/// One label: a textured quad for each character. It has the same size on the screen at every zoom,
/// starts at its anchor and is centred on it in height.
///
/// A large tree has millions of labels, of which some fifty are visible at a time. So a label keeps
/// only its extent, and its quads are computed each time they are drawn.
class Text : public Drawable
{
public:
  /// A character in its place.
  struct Quad
  {
    Glyph* glyph;
    /// Corner x and y from the anchor in pixels: counter-clockwise from the lower left.
    std::array<float, 8> corners;
  };

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

  std::string text() const { return {_text.begin(), _text.end()}; }
  const Point2D<double>& position() const { return _position; }
  /// The extent of all quads from the anchor, in pixels; empty without a font or characters.
  Box2D boundingBox() const;
  /// In the order of the characters; one that the font can't give has none.
  std::vector<Quad> quads() const;

private:
  template <class Action>
  void _forEachQuad(Action action) const;

  // The members that are read for every label when a level is thinned come first, side by side.
  Point2D<double> _position;
  // The box's numbers are those of the quads, so that float loses nothing.
  Point2D<float> _minimum{std::numeric_limits<float>::max(), std::numeric_limits<float>::max()};
  Point2D<float> _maximum{std::numeric_limits<float>::lowest(),
                          std::numeric_limits<float>::lowest()};
  boost::intrusive_ptr<Font> _font;
  // Smaller than a std::string, and longer names fit into it.
  boost::container::string _text;
};

} // namespace orvex::render::gl
