#include "render/gl/draw/Triangle.h"

#include "render/gl/draw/Batch.h"
#include "render/gl/draw/State.h"

static_assert(sizeof(Triangle) == 64);

Triangle::Triangle(const Point& node, const orvex::render::Box2D& clade)
    : _node(node), _right(clade.maximum.x), _bottom(clade.minimum.y), _top(clade.maximum.y)
{
}

void Triangle::render(orvex::render::gl::State& state) const
{
  state.batch().triangle(_node, {_right, _bottom}, {_right, _top});
}

std::array<Triangle::Point, 3> Triangle::vertices() const
{
  return {{_node, {_right, _bottom}, {_right, _top}}};
}
