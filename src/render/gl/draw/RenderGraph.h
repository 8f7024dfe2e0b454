#pragma once

#include "render/gl/draw/Drawable.h"
#include "render/layout/Box2D.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <vector>

namespace orvex::render::gl
{

/// What one frame draws: proxies, then lines and runs, then labels on top. Lives for one frame.
class RenderGraph
{
public:
  using Drawables = std::vector<boost::intrusive_ptr<Drawable>>;

  // Null is ignored by all three.
  void addLowLod(const boost::intrusive_ptr<Drawable>& drawable) { _add(_lowLod, drawable); }
  void addHighLod(const boost::intrusive_ptr<Drawable>& drawable) { _add(_highLod, drawable); }
  void addText(const boost::intrusive_ptr<Drawable>& drawable) { _add(_text, drawable); }

  /// Adds a clade whose lines light one run of pixels. \param box  the clade's, in world units
  void addRun(const Box2D& box) { _runs.push_back(box); }

  const Drawables& lowLod() const { return _lowLod; }
  const Drawables& highLod() const { return _highLod; }
  const std::vector<Box2D>& runs() const { return _runs; }
  const Drawables& text() const { return _text; }

  /// Draws the lists into the current context. Leaves the polygon mode GL_LINE behind.
  void render(State& state) const;

private:
  static void _add(Drawables& list, const boost::intrusive_ptr<Drawable>& drawable);

  Drawables _lowLod;
  Drawables _highLod;
  std::vector<Box2D> _runs;
  Drawables _text;
};

} // namespace orvex::render::gl
