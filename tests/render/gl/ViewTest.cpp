#include "render/gl/GlCanvas.h"
#include "render/gl/SceneFixture.h"

#include "foundation/InstanceManager.h"
#include "render/MouseEvent.h"
#include "render/gl/RenderGraph.h"
#include "render/gl/State.h"
#include "render/gl/Triangle.h"
#include "render/gl/ViewCladogram.h"

#include <cmath>

namespace orvex::test
{
namespace
{

using namespace render::gl;

bool isLit(const Colour& c)
{
  return c[0] + c[1] + c[2] > 90;
}

/// A view of a tree in a window of its own.
class ViewPixels : public GlCanvas
{
protected:
  void show(const std::string& newick, int width, int height)
  {
    open(width, height);
    view = new ViewCladogram;
    view->tree(NewickReader().parseContents(newick));
    view->update();
    view->resize(static_cast<unsigned int>(width), static_cast<unsigned int>(height));
    draw();
  }

  void draw()
  {
    view->render();
    read();
  }

  /// The window's row of a world y, counted from below.
  int rowOf(double y) const
  {
    const double h = height();
    const auto* camera = view->camera();
    return static_cast<int>(
        std::floor((y + camera->position().y) * camera->zoom() * (h - 16) + h * 0.5));
  }

  int columnOf(double x) const
  {
    const unsigned int w = view->mainViewport().width - view->camera()->horizontalPixelsForText();
    return static_cast<int>(std::floor(view->mainViewport().x + (x + 0.01) * w));
  }

  bool rowIsWhite(int row, int x0, int x1) const
  {
    for (int x = x0; x < x1; ++x)
    {
      if (pixel(x, row) != white)
      {
        return false;
      }
    }
    return true;
  }

  void TearDown() override { view = nullptr; }

  boost::intrusive_ptr<ViewCladogram> view;
};

TEST_F(ViewPixels, LeafLinesLieInTheirRowsAndLabelsBesideThem)
{
  show("((A,B),C);", 500, 300);
  const int inner = columnOf(0.740363);
  const int leaves = columnOf(1.0);
  // The first leaf lies on the border of two rows, eight pixels below the edge.
  EXPECT_TRUE(rowIsWhite(292, inner + 1, leaves - 1) != rowIsWhite(291, inner + 1, leaves - 1));
  EXPECT_TRUE(rowIsWhite(rowOf(2.0 / 3.0), inner + 1, leaves - 1));
  EXPECT_TRUE(rowIsWhite(rowOf(1.0 / 3.0), columnOf(0.0) + 1, leaves - 1));
  EXPECT_TRUE(rowIsWhite(rowOf(5.0 / 6.0), columnOf(0.0) + 1, inner - 1));
  EXPECT_EQ(pixel(inner - 4, rowOf(1.0)), black) << "a line ends at its parent's column";

  int lowest = 0;
  const int labelHeight = rowsWith(leaves + 2, leaves + 30, isLit, &lowest);
  EXPECT_GT(labelHeight, 0);
  int lowestOfC = 0;
  int cRows = 0;
  for (int row = rowOf(1.0 / 3.0) - 20; row < rowOf(1.0 / 3.0) + 20; ++row)
  {
    bool any = false;
    for (int x = leaves + 2; x < leaves + 20; ++x)
    {
      any = any || isLit(pixel(x, row));
    }
    lowestOfC = any && cRows == 0 ? row : lowestOfC;
    cRows += any ? 1 : 0;
  }
  EXPECT_NEAR(cRows, 11, 2) << "a capital in an em of 15 pixels";
  EXPECT_NEAR(lowestOfC + cRows / 2.0, rowOf(1.0 / 3.0), 1.5) << "its centre is at the leaf";
}

TEST_F(ViewPixels, DraggingMovesTheTreeWithThePointerAtEveryZoom)
{
  show(randomNewick(400, 11), 500, 300);
  for (const double zoom : {0.0, 3.7, 11.0})
  {
    SCOPED_TRACE(zoom);
    view->camera()->reset();
    view->handleZoom(zoom);
    const double before = (view->viewMatrix() * Kelmar::Math::Vector3d(1.0, 0.4, 0.0))[1];
    render::MouseEvent start;
    start.position = {0.1, 0.2};
    render::MouseEvent end = start;
    end.position[1] += 2.0 * 60 / height(); // 60 pixels up
    end.left = true;
    view->handleNavigation(end, start);
    const double after = (view->viewMatrix() * Kelmar::Math::Vector3d(1.0, 0.4, 0.0))[1];
    EXPECT_NEAR(after - before, 60.0, 1e-6);

    const double zoomed = view->camera()->zoom();
    end.right = true;
    view->handleNavigation(end, start);
    EXPECT_EQ(view->camera()->zoom(), zoomed) << "left wins over right";
    end.left = false;
    view->handleNavigation(end, start);
    EXPECT_NEAR(view->camera()->zoom(), std::min(zoomed * 1.4, view->camera()->maximumZoom()),
                1e-9);
  }
}

TEST_F(ViewPixels, BushyTreeShowsGreenProxiesThatOpenWithTheZoom)
{
  show(randomNewick(3000, 5), 700, 400);
  const auto isGreen = [](const Colour& c) { return c[1] > 200 && c[0] < 60 && c[2] < 60; };
  const int proxies = count(isGreen);
  EXPECT_GT(proxies, 500);
  view->settings()->alwaysUseHighLod(true);
  draw();
  EXPECT_EQ(count(isGreen), 0) << "always show the tree";
  view->settings()->alwaysUseHighLod(false);
  view->handleZoom(1e6);
  draw();
  EXPECT_EQ(count(isGreen), 0) << "the greatest zoom";
}

TEST_F(ViewPixels, ProxyIsAnOutline)
{
  open(100, 100);
  const boost::intrusive_ptr<Triangle> clade(new Triangle({-0.8, 0.0}, {0.8, -0.8}, {0.8, 0.8}));
  const boost::intrusive_ptr<State> state(new State);
  RenderGraph graph;
  graph.addLowLod(clade);
  graph.addLowLod(nullptr);
  graph.render(*state);
  read();
  EXPECT_EQ(pixel(60, 50), black) << "a proxy is not filled";
  EXPECT_GT(count(green), 150) << "three edges of some 80 pixels each";
  EXPECT_EQ(count(green) + count(black), 100 * 100) << "no third colour";
}

TEST_F(ViewPixels, ATreeMovedOutOfSightLeavesTheMainAreaBlack)
{
  show("((A,B),C);", 500, 300);
  view->camera()->pan(0.0, 3.0);
  draw();
  for (int x = 50; x < 500; ++x)
  {
    for (int y = 0; y < 300; ++y)
    {
      ASSERT_EQ(pixel(x, y), black) << "moved out of sight, at " << x << " " << y;
    }
  }
}

TEST_F(ViewPixels, AnyWindowSizeIsSafe)
{
  show(randomNewick(300, 2), 640, 480);
  const render::MouseEvent start;
  render::MouseEvent end;
  end.position = {0.3, 0.3};
  end.left = true;
  for (const auto& [w, h] : std::vector<std::pair<unsigned int, unsigned int>>{
           {0, 0}, {1, 1}, {9, 400}, {640, 1}, {640, 16}, {150, 480}, {167, 17}, {1, 480}, {0, 9}})
  {
    SCOPED_TRACE(testing::Message() << w << " by " << h);
    view->resize(w, h);
    EXPECT_NO_THROW(view->render());
    EXPECT_NO_THROW(view->handleNavigation(end, start));
    EXPECT_NO_THROW(view->handleZoom(0.12));
    EXPECT_TRUE(std::isfinite(view->camera()->position().y));
    EXPECT_TRUE(std::isfinite(view->camera()->zoom()));
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
  }
  EXPECT_EQ(view->thumbnailViewport().width, 0u);
}

TEST_F(ViewPixels, UpdatingAgainReplacesTheScene)
{
  show("((A,B),C);", 500, 300);
  const std::size_t objects = Helper::instanceManager.numberOfObjects();
  view->update();
  draw();
  EXPECT_EQ(Helper::instanceManager.numberOfObjects(), objects);
  view->tree(boost::make_shared<Tree>());
  view->update();
  EXPECT_FALSE(view->root()) << "a tree without a root gives no scene";
  EXPECT_EQ(view->camera()->horizontalPixelsForText(), 150u);
  EXPECT_NO_THROW(draw());
  EXPECT_TRUE(view->settings()->drawText());
}

} // namespace
} // namespace orvex::test
