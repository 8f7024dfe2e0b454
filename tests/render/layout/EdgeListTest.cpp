#include "render/layout/EdgeList.h"

#include "support/Outcome.h"
#include "support/Polyline.h"

#include <utility>

using namespace orvex::render;
using Lines = std::vector<Polyline::Points>;

static bool haveEdges(const EdgeList& edges, const Lines& lines)
{
  const auto isSame = [](const Point2D<double>& a, const Point2D<double>& b)
  { return a.x == b.x && a.y == b.y; };
  const Lines read = linesOf(edges);
  return std::equal(read.begin(), read.end(), lines.begin(), lines.end(),
                    [&](const Polyline::Points& a, const Polyline::Points& b)
                    { return std::equal(a.begin(), a.end(), b.begin(), b.end(), isSame); });
}

TEST(EdgeList, GivesBackTheEdgesItWasMadeOf)
{
  const Lines lines{{{0.1, 0.2}, {0.1, 0.7}, {0.9, 0.7}},
                    {{0.1, 0.2}, {0.0, 0.0}},
                    {{0.0, -3e300}},
                    {{5.0, -3e300}, {5.0, 1e-300}, {1.0, 1e-300}, {1.0, 0.0}, {5.0, 0.0}},
                    {{5.0, 0.0}, {5.0, 0.0}}};
  Lines given = lines;
  given.insert(given.begin() + 1, Polyline::Points{}); // adds nothing
  EdgeList edges = edgesAlong(given);
  EXPECT_TRUE(haveEdges(edges, lines));

  const EdgeList copy(edges);
  const EdgeList moved(std::move(edges));
  EXPECT_TRUE(haveEdges(copy, lines));
  EXPECT_TRUE(haveEdges(moved, lines));
  edges = copy;
  EXPECT_TRUE(haveEdges(edges, lines));

  for (const EdgeList& none : {EdgeList(), edgesAlong({{}}), EdgeList(edgesAlong({}))})
  {
    EXPECT_TRUE(none.empty());
    EXPECT_TRUE(haveEdges(none, {}));
  }
}

TEST(EdgeList, BeginsAnewAfterEachListOfAWriter)
{
  EdgeList::Writer writer;
  const boost::intrusive_ptr<Polyline> edge(new Polyline({{2.0, 3.0}, {2.0, 4.0}}));
  for (int i = 0; i < 2; ++i)
  {
    writer.add(*edge);
    EXPECT_TRUE(haveEdges(writer.finish(), {edge->points})) << i;
  }
}
