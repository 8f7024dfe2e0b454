#include "paper/Canvas.h"
#include "paper/Pages.h"
#include "paper/Strip.h"
#include "paper/TreeScene.h"
#include "paper/ViewSheet.h"
#include "paper/WholeSheet.h"
#include "render/gl/draw/PixelRuns.h"
#include "support/SceneFixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

namespace
{

using namespace orvex;
using paper::Box2D;
using paper::Point;
using render::gl::pixelOf;

struct Segment
{
  Point from, to;
};

/// Keeps what is drawn.
class RecordingCanvas : public paper::Canvas
{
public:
  struct Sheet
  {
    double width, height;
    std::vector<Segment> lines{};
    std::vector<std::pair<Point, std::string>> texts{};
  };

  void beginSheet(double width, double height) override { sheets.push_back({width, height}); }
  void clip(const Box2D&) override { linesBefore = sheets.back().lines.size(); }
  void lineWidth(double) override {}
  void line(const std::vector<Point>& points) override
  {
    for (std::size_t i = 1; i < points.size(); ++i)
    {
      sheets.back().lines.push_back({points[i - 1], points[i]});
    }
  }
  void outline(const std::array<Point, 3>&) override {}
  void text(const Point& start, const std::string& text, double) override
  {
    sheets.back().texts.emplace_back(start, text);
  }
  void mark(const Box2D&) override {}
  void finish() override {}

  std::vector<Sheet> sheets;
  /// The last clip.
  std::size_t linesBefore = 0;
};

/// A tree with the lines of its layout, in world units, and the names of its leaves, each in order.
struct LaidOut
{
  explicit LaidOut(const std::string& newick)
      : tree(NewickReader().parseContents(newick)), scene(tree)
  {
    const boost::intrusive_ptr<render::TreeLayout2D> algorithm(new render::LayoutCladogram);
    const auto layout = algorithm->layout(tree);
    for (int node = 0; node < static_cast<int>(tree->getNumberOfNodes()); ++node)
    {
      Point previous{};
      const render::EdgeList& edges = layout->layoutInfoForNode(node).edges;
      for (render::EdgeList::Reader reader(edges); reader.next(); previous = reader.vertex())
      {
        const Point next = reader.vertex();
        if (!reader.beginsEdge() && (previous.x != next.x || previous.y != next.y))
        {
          lines.push_back({previous, next});
        }
      }
    }
    std::vector<int> leaves;
    tree->getLeafNodes(tree->getRootNodeId(), leaves);
    for (const int leaf : leaves)
    {
      names.push_back(tree->getName(leaf));
    }
  }

  boost::shared_ptr<Tree> tree;
  paper::TreeScene scene;
  std::vector<Segment> lines;
  std::vector<std::string> names;
};

/// Hundredths of a point: from x, from y, to x, to y.
using Rounded = std::array<long, 4>;

template <class ToSheet>
std::vector<Rounded> rounded(const std::vector<Segment>& lines, ToSheet toSheet)
{
  std::vector<Rounded> result;
  for (const Segment& line : lines)
  {
    const Point from = toSheet(line.from);
    const Point to = toSheet(line.to);
    result.push_back({std::lround(from.x * 100), std::lround(from.y * 100), std::lround(to.x * 100),
                      std::lround(to.y * 100)});
  }
  std::sort(result.begin(), result.end());
  return result;
}

Point itself(const Point& point)
{
  return point;
}

const char* const smallTree = "((Aa,Bb)x,((Cc,Dd),Ee,Ff)y);";
const char* const twoTrees = "(a,b);(some_longer_name,(Q,(m,n)));";

} // namespace

// Each row is as high as asked for, and the columns lie as in the layout.
TEST(PaperTest, AWholeTreeHasTheLinesAndNamesOfTheLayout)
{
  for (const std::string& newick :
       {std::string(smallTree), std::string(twoTrees), randomNewick(3000, 5)})
  {
    SCOPED_TRACE(newick.substr(0, 60));
    const LaidOut tree(newick);
    paper::Typeface typeface;
    const double leafHeight = 9.0; // so that a pixel is half a point
    const paper::Strip strip(tree.scene, typeface, leafHeight, 500.0);
    RecordingCanvas canvas;
    drawWhole(strip, 0.5, canvas);
    ASSERT_EQ(canvas.sheets.size(), 1);
    const RecordingCanvas::Sheet& sheet = canvas.sheets[0];
    EXPECT_NEAR(sheet.width, 500.0, 1.0);
    EXPECT_EQ(sheet.height, leafHeight * double(tree.names.size()) + 8.0);
    ASSERT_EQ(sheet.texts.size(), tree.names.size());
    // The tree lies 0.01 of its width to the right, and its names 0.011; lines are moved a little.
    const double unit = std::round(sheet.texts[0].first.x / 1.011 * 2.0) / 2.0;
    const auto toSheet = [&](const Point& world)
    {
      return Point{(world.x + 0.01) * unit - 0.001,
                   4.001 + (1.0 - world.y) * leafHeight * double(tree.names.size())};
    };
    EXPECT_EQ(rounded(sheet.lines, itself), rounded(tree.lines, toSheet));
    for (std::size_t i = 0; i < tree.names.size(); ++i)
    {
      const auto& [start, name] = sheet.texts[i];
      EXPECT_EQ(name, tree.names[i]);
      EXPECT_LE(start.x + typeface.width(name) * 7.5, sheet.width) << name;
      const double belowMiddle = start.y - (4.0 + leafHeight * double(i));
      EXPECT_TRUE(belowMiddle > 0.0 && belowMiddle < 0.5 * leafHeight) << name;
    }
  }
}

// Lines that fall into others are left out, and still each pixel has its line.
TEST(PaperTest, AViewLightsThePixelsOfAllLines)
{
  const LaidOut tree(randomNewick(3000, 6));
  RecordingCanvas canvas;
  drawView(tree.scene, {400, 300, 1.0, 0.0, true, 1.0}, canvas);
  const auto pixelsOf = [](const std::vector<Segment>& lines, auto toPixels)
  {
    std::set<std::pair<double, double>> pixels;
    for (const Segment& line : lines)
    {
      const Point from = toPixels(line.from);
      const Point to = toPixels(line.to);
      for (double x = pixelOf(from.x); x <= pixelOf(to.x); ++x)
      {
        for (double y = pixelOf(std::min(from.y, to.y)); y <= pixelOf(std::max(from.y, to.y)); ++y)
        {
          pixels.emplace(x, y);
        }
      }
    }
    return pixels;
  };
  // The main area is 360 wide, 150 of which are for names, and has margins of 8 in height.
  const auto ofWorld = [](const Point& world) {
    return Point{40.0 + (world.x + 0.01) * 210.0, 8.0 + world.y * 284.0};
  };
  const auto ofSheet = [](const Point& sheet) { return Point{sheet.x + 0.001, 300.001 - sheet.y}; };
  const std::vector<Segment>& all = canvas.sheets.at(0).lines;
  const std::vector<Segment> drawn(all.begin() + long(canvas.linesBefore), all.end());
  EXPECT_EQ(pixelsOf(drawn, ofSheet), pixelsOf(tree.lines, ofWorld));
  EXPECT_LT(drawn.size(), tree.lines.size() / 2);
}

TEST(PaperTest, PagesHoldEveryNameOnceAndNameTheLinesThatLeaveThem)
{
  const LaidOut tree("((((Aa,Bb),Cc)inner,Dd),Ee);");
  paper::Typeface typeface;
  const paper::Strip strip(tree.scene, typeface, 18.0, 300.0);
  // Room for two rows of leaves in height, and for 150 points in width.
  const paper::Pages pages(strip,
                           {150.0 + 2.0 * paper::Pages::margin, 40.0 + 2.0 * paper::Pages::margin});
  RecordingCanvas canvas;
  pages.draw(tree.scene, "title", 1.0, canvas);
  ASSERT_EQ(canvas.sheets.size(), 6);
  std::vector<std::string> texts;
  for (const RecordingCanvas::Sheet& sheet : canvas.sheets)
  {
    texts.emplace_back("|");
    for (const auto& [start, text] : sheet.texts)
    {
      texts.push_back(text);
    }
  }
  EXPECT_THAT(texts,
              testing::ElementsAre(
                  "|", "1 of 3, column 1   title", "node 1: 2 above, 2 below",
                  "inner: 2 above, 1 below", "|", "2 of 3, column 1   title",
                  "node 1: 2 above, 2 below", "inner: 2 above, 1 below", "node 0: 4 above, 1 below",
                  "|", "3 of 3, column 1   title", "node 0: 4 above, 1 below", "|", "Aa", "Bb",
                  "1 of 3, column 2   title", "|", "Cc", "Dd", "2 of 3, column 2   title", "|",
                  "Ee", "3 of 3, column 2   title"));
}

TEST(PaperTest, WhatHasNoRoomIsRefused)
{
  const LaidOut tree(twoTrees);
  paper::Typeface typeface;
  EXPECT_THROW(paper::Strip(tree.scene, typeface, 18.0, 100.0), std::runtime_error);
  const paper::Strip strip(tree.scene, typeface, 400.0, std::nullopt);
  EXPECT_THROW(paper::Pages(strip, paper::PageFormat::parse("A4")), std::runtime_error);
  const paper::PageFormat page = paper::PageFormat::parse("254x127mm").landscape();
  EXPECT_NEAR(page.width, 360.0, 0.01);
  EXPECT_NEAR(page.height, 720.0, 0.01);
  EXPECT_NEAR(paper::PageFormat::parse("a4").height, 842.0, 0.3);
  for (const char* const text : {"", "A44", "10x10mm", "210x297", "9999x100mm", "1..2x300mm"})
  {
    EXPECT_THROW(paper::PageFormat::parse(text), std::invalid_argument) << text;
  }
}
