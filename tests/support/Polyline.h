#pragma once

#include "render/layout/EdgeList.h"

#include <utility>

/// An edge along any points.
struct Polyline : orvex::render::Edge2D
{
  using Points = std::vector<orvex::render::Point2D<double>>;

  explicit Polyline(Points all) : points(std::move(all)) {}
  void evaluate(Points& result) const override { result = points; }

  Points points;
};

/// The edges along some lines.
inline orvex::render::EdgeList edgesAlong(const std::vector<Polyline::Points>& lines)
{
  orvex::render::EdgeList::Writer edges;
  for (const Polyline::Points& line : lines)
  {
    edges.add(*boost::intrusive_ptr<Polyline>(new Polyline(line)));
  }
  return edges.finish();
}

/// The points of each edge of a list.
inline std::vector<Polyline::Points> linesOf(const orvex::render::EdgeList& edges)
{
  std::vector<Polyline::Points> lines;
  for (orvex::render::EdgeList::Reader reader(edges); reader.next();)
  {
    reader.beginsEdge() ? lines.push_back({reader.vertex()})
                        : lines.back().push_back(reader.vertex());
  }
  return lines;
}
