#include "render/gl/OpenGL.h"

#include "foundation/InstanceManager.h"
#include "render/MouseEvent.h"
#include "render/gl/GlCanvas.h"
#include "render/gl/Image.h"
#include "render/gl/RenderGraph.h"
#include "render/gl/SceneFixture.h"
#include "render/gl/Texture2D.h"
#include "render/gl/Triangle.h"

#include <cmath>

namespace
{

using namespace orvex::render;
using namespace orvex::render::gl;
using namespace orvex::test;

const auto isLit = [](const Colour& c) { return c[0] + c[1] + c[2] > 90; };

const auto isGreen = [](const Colour& c) { return c == Colour{0, 255, 0}; };

using ViewPixels = GlCanvas;
using Thumbnail = GlCanvas;

TEST_F(ViewPixels, LeafLinesLieInTheirRowsAndLabelsBesideThem)
{
  openView("((A,B),C);", 500, 300);
  draw();
  const auto rowOf = [](double y) { return static_cast<int>((y - 0.5) * (300 - 16) + 150.0); };
  const unsigned int w = view->mainViewport().width - view->camera()->horizontalPixelsForText();
  const auto columnOf = [&](double x) { return 50 + static_cast<int>((x + 0.01) * w); };
  // Whether a row, counted from below, is white between two columns.
  const auto rowIsWhite = [&](int row, int x0, int x1)
  {
    const auto isWhite = [](const Colour& c) { return c == Colour{255, 255, 255}; };
    return find(isWhite, x0, x1, row, row + 1).count == x1 - x0;
  };
  const int root = columnOf(0.0);
  const int inner = columnOf(0.740363);
  const int leaves = columnOf(1.0);
  // The first leaf lies on the border of two rows, eight pixels below the edge.
  EXPECT_TRUE(rowIsWhite(292, inner + 1, leaves - 1) != rowIsWhite(291, inner + 1, leaves - 1));
  EXPECT_TRUE(rowIsWhite(rowOf(2.0 / 3.0), inner + 1, leaves - 1));
  EXPECT_TRUE(rowIsWhite(rowOf(1.0 / 3.0), root + 1, leaves - 1));
  EXPECT_TRUE(rowIsWhite(rowOf(5.0 / 6.0), root + 1, inner - 1));
  EXPECT_EQ(find(isLit, inner - 4, inner - 3, 290, 294).count, 0) << "lines end at the parent";

  const int row = rowOf(1.0 / 3.0);
  const auto label = find(isLit, leaves + 2, leaves + 20, row - 20, row + 20);
  EXPECT_NEAR(label.end - label.low, 11, 2) << "a capital in an em of 15 pixels";
  EXPECT_NEAR((label.low + label.end) / 2.0, row, 1.5) << "its centre is at the leaf";

  view->camera()->pan(0.0, 3.0);
  draw();
  EXPECT_EQ(find(isLit, 50).count, 0) << "moved out of sight";
}

TEST_F(ViewPixels, DraggingMovesTheTreeWithThePointerAtEveryZoom)
{
  openView(randomNewick(400, 11), 500, 300);
  const auto row = [&] { return (view->viewMatrix() * Kelmar::Math::Vector3d(1.0, 0.4, 0.0))[1]; };
  MouseEvent start;
  MouseEvent end;
  end.position[1] = 2.0 * 60 / height; // 60 pixels up
  end.left = end.right = true;         // left wins
  for (const double zoom : {1.0, 4.7, 12.0})
  {
    view->camera()->zoomByAmount(zoom - view->camera()->zoom());
    const double before = row();
    view->handleNavigation(end, start);
    EXPECT_NEAR(row() - before, 60.0, 1e-6) << zoom;
    EXPECT_NEAR(view->camera()->zoom(), zoom, 1e-9);
  }
}

TEST_F(ViewPixels, BushyTreeShowsGreenProxiesThatOpenWithTheZoom)
{
  openView(randomNewick(3000, 5), 700, 400);
  draw();
  EXPECT_GT(find(isGreen).count, 500);
  view->settings()->alwaysUseHighLod(true);
  draw();
  EXPECT_EQ(find(isGreen).count, 0) << "always show the tree";
  view->settings()->alwaysUseHighLod(false);
  view->handleZoom(1e6);
  draw();
  EXPECT_EQ(find(isGreen).count, 0) << "the greatest zoom";
}

TEST_F(ViewPixels, ProxyIsAnOutline)
{
  open(100, 100);
  RenderGraph graph;
  graph.addLowLod(new Triangle({-0.8, 0.0}, {0.8, -0.8}, {0.8, 0.8}));
  graph.addLowLod(nullptr);
  graph.render(*boost::intrusive_ptr<State>(new State));
  read();
  EXPECT_EQ(find(isLit, 55, 65, 45, 55).count, 0) << "a proxy is not filled";
  EXPECT_GT(find(isGreen).count, 150) << "three edges of some 80 pixels each";
}

TEST_F(ViewPixels, AnyWindowSizeIsSafe)
{
  openView(randomNewick(300, 2), 640, 480);
  MouseEvent end;
  end.position = {0.3, 0.3};
  end.left = true;
  for (const auto& [w, h] : std::vector<std::pair<unsigned int, unsigned int>>{
           {0, 0}, {1, 1}, {9, 400}, {640, 1}, {640, 16}, {150, 480}, {167, 17}, {1, 480}, {0, 9}})
  {
    SCOPED_TRACE(testing::Message() << w << " by " << h);
    view->resize(w, h);
    view->render();
    view->handleNavigation(end, MouseEvent());
    view->handleZoom(0.12);
    EXPECT_TRUE(std::isfinite(view->camera()->position().y + view->camera()->zoom()));
    EXPECT_EQ(glGetError(), GLenum(GL_NO_ERROR));
  }
}

// Where the rectangle covers black the fill alone leaves a dark blue.
const auto isBlue = [](const Colour& c) { return c[2] > c[0] + 40; };

const auto isLine = [](const Colour& c) { return c[0] > 100; };

TEST_F(Thumbnail, RectangleFollowsZoomAndPan)
{
  openView(randomNewick(500, 4), 1000, 600);
  for (const auto& [zoom, pan] : std::vector<std::pair<double, double>>{
           {1.0, 0.0}, {2.0, 0.0}, {4.0, 0.2}, {4.0, -0.3}, {10.0, -0.45}})
  {
    SCOPED_TRACE(testing::Message() << "zoom " << zoom << " pan " << pan);
    view->camera()->reset();
    view->camera()->zoomByAmount(zoom - 1.0);
    view->camera()->pan(0.0, pan);
    draw();
    // By the arithmetic of the rectangle's corners.
    const double half = 600.0 / (2.0 * zoom * (600 - 16)) * 600.0;
    const double middle = (0.5 - pan) * 600.0;
    const Found blue = find(isBlue, 2, 98);
    EXPECT_NEAR(blue.low, std::max(0.0, middle - half), 1.0);
    EXPECT_NEAR(blue.end, std::min(600.0, middle + half), 1.0);
    EXPECT_GT(blue.count, 90 * (blue.end - blue.low)) << "filled";
  }
}

TEST_F(Thumbnail, ShowsTheWholeTreeAndIsMadeAgainByAResizeOnly)
{
  openView("((A,B),C);", 500, 300);
  draw();
  // The unit square fills the column exactly: a leaf's line lies at its share of the height.
  EXPECT_GT(find(isLine, 3, 49, 99, 102).count, 42) << "the line to C at a third";
  view->tree(orvex::NewickReader().parseContents("(a,b,c,d,e,f);"));
  view->update();
  draw();
  EXPECT_NEAR(find(isLine, 40, 49).low, 100, 1) << "still the old picture";
  view->resize(500, 300);
  draw();
  EXPECT_NEAR(find(isLine, 40, 49).low, 50, 1);
}

TEST_F(Thumbnail, ManyResizesLeaveNothingBehind)
{
  openView("((A,B),C);", 500, 300);
  draw();
  const auto objects = []
  {
    int alive = 0;
    for (GLuint name = 1; name < 400; ++name)
    {
      alive += (glIsTexture(name) ? 1 : 0) + (glIsFramebufferEXT(name) ? 1 : 0);
    }
    return alive;
  };
  const int before = objects();
  for (unsigned int w = 500; w > 0; w -= 10) // at last no column at all
  {
    view->resize(w, w / 2);
    view->render();
  }
  view->resize(500, 300);
  draw();
  EXPECT_EQ(objects(), before);
  GLint bound = -1;
  glGetIntegerv(GL_FRAMEBUFFER_BINDING_EXT, &bound);
  EXPECT_EQ(bound, 0);
  EXPECT_FALSE(view->settings()->alwaysUseHighLod());
}

TEST_F(Thumbnail, WithoutFramebufferSupportTheColumnStaysBlackUnderItsRectangle)
{
  openView("((A,B),C);", 1000, 600);
  __GLEW_EXT_framebuffer_object = GL_FALSE;
  draw();
  draw();
  __GLEW_EXT_framebuffer_object = GL_TRUE;
  EXPECT_EQ(find(isLine, 0, 99).count, 0);
  EXPECT_GT(find(isBlue, 0, 99).count, 100 * 500);
}

TEST_F(Thumbnail, TexturesUploadTheirImageOnce)
{
  open(64, 64);
  const boost::intrusive_ptr<Image> image(new Image);
  image->init(3, 2, GL_RGB); // rows of nine bytes, which no alignment but one fits
  const std::string pixels = "three by two RGBs!";
  std::copy(pixels.begin(), pixels.end(), image->buffer());
  const boost::intrusive_ptr<Texture2D> texture(new Texture2D(image));
  texture->apply();
  image->buffer()[0] = 99;
  texture->apply();
  std::string back(18, ' ');
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, back.data());
  EXPECT_EQ(back, pixels);
  EXPECT_THROW(image->init(5, 5, GL_DEPTH_COMPONENT), std::runtime_error);
  EXPECT_EQ(*image->buffer(), 99) << "the earlier pixels stay";
}

} // namespace
