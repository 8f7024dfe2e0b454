#include "render/gl/draw/RenderGraph.h"

#include "render/gl/device/ClientArrays.h"
#include "render/gl/draw/Batch.h"
#include "render/gl/draw/State.h"

#include <boost/core/noncopyable.hpp>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

/// Until the end of the scope, sets matrices under which one unit is one pixel of the window and
/// all depths are that of the tree's plane.
class PixelMatrixScope : private boost::noncopyable
{
public:
  PixelMatrixScope(const Viewport& viewport, double depth)
  {
    const double x = viewport.x;
    const double y = viewport.y;
    auto pixels = Kelmar::Math::Matrix44d::orthographic(x, x + viewport.width, y,
                                                        y + viewport.height, -1.0, 1.0);
    pixels[14] = 2.0 * depth - 1.0;
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadMatrixd(pixels.data());
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
  }
  ~PixelMatrixScope()
  {
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
  }
};

/// Draws with one sample for a pixel until the end of the scope. Whole pixels are the same with
/// several, which take a software renderer four tenths longer.
class SingleSampleScope : private boost::noncopyable
{
public:
  SingleSampleScope() : _wasEnabled(GLEW_VERSION_1_3 && glIsEnabled(GL_MULTISAMPLE) == GL_TRUE)
  {
    if (_wasEnabled)
    {
      glDisable(GL_MULTISAMPLE);
    }
  }
  ~SingleSampleScope()
  {
    if (_wasEnabled)
    {
      glEnable(GL_MULTISAMPLE);
    }
  }

private:
  bool _wasEnabled;
};

/// Sets OpenGL to filled and blended drawing until the end of the scope.
class LabelScope : private boost::noncopyable
{
public:
  LabelScope()
  {
    glPushAttrib(GL_TEXTURE_BIT | GL_ENABLE_BIT | GL_POLYGON_BIT);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  }
  ~LabelScope()
  {
    glDisable(GL_TEXTURE_2D);
    glPopAttrib();
  }
};

void renderAll(const RenderGraph::Drawables& drawables, State& state)
{
  for (const boost::intrusive_ptr<Drawable>& drawable : drawables)
  {
    drawable->render(state);
  }
  state.batch().flush();
}

void renderRuns(const std::vector<Box2D>& clades, State& state)
{
  for (const Box2D& clade : clades)
  {
    state.batch().line(clade.minimum, {clade.maximum.x, clade.minimum.y});
  }
  state.batch().flush();
}

} // namespace
} // namespace Detail

void RenderGraph::_add(Drawables& list, const boost::intrusive_ptr<Drawable>& drawable)
{
  if (drawable)
  {
    list.push_back(drawable);
  }
}

void RenderGraph::render(State& state) const
{
  glDisable(GL_LIGHTING);
  const ClientArrays arrays{GL_VERTEX_ARRAY, GL_COLOR_ARRAY};
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  const Kelmar::Math::Matrix44d localToScreen = state.getLocalToScreenMatrix();
  const double depth = (localToScreen * Kelmar::Math::Vector3d(0.0, 0.0, 0.0))[2];
  const Detail::PixelMatrixScope pixels(state.viewport(), depth);
  state.batch().begin(state.viewport(), localToScreen);
  Detail::renderAll(_lowLod, state);
  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
  {
    const Detail::SingleSampleScope sharp;
    Detail::renderAll(_highLod, state);
    Detail::renderRuns(_runs, state);
  }
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  const Detail::LabelScope labels;
  const ClientArrays coordinates{GL_TEXTURE_COORD_ARRAY};
  Detail::renderAll(_text, state);
}

} // namespace orvex::render::gl
