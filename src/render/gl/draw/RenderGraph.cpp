#include "render/gl/draw/RenderGraph.h"

#include "render/gl/device/OpenGL.h"

#include <boost/core/noncopyable.hpp>

namespace orvex::render::gl
{
namespace Detail
{

/// The vertex and colour arrays, for a scope.
class LineArrays : private boost::noncopyable
{
public:
  LineArrays()
  {
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
  }
  ~LineArrays()
  {
    glDisableClientState(GL_VERTEX_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
  }
};

/// Filled, blended, textured drawing, for a scope.
class LabelDrawing : private boost::noncopyable
{
public:
  LabelDrawing()
  {
    glPushAttrib(GL_TEXTURE_BIT | GL_ENABLE_BIT | GL_POLYGON_BIT);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
  }
  ~LabelDrawing()
  {
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
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
}

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
  const Detail::LineArrays lines;
  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
  Detail::renderAll(_lowLod, state);
  Detail::renderAll(_highLod, state);
  const Detail::LabelDrawing labels;
  Detail::renderAll(_text, state);
}

} // namespace orvex::render::gl
