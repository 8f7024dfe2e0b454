#include "support/GlWindowTest.h"

#include "render/gl/device/FrameBufferObject.h"
#include "render/gl/view/ViewCladogram.h"

#include <numeric>

using namespace orvex::render;
using namespace orvex::render::gl;

const auto isLit = [](const QColor& c) { return c.red() + c.green() + c.blue() > 90; };
const auto isGreen = [](const QColor& c) { return c == QColor(Qt::green); };
const auto isWhite = [](const QColor& c) { return c == QColor(Qt::white); };
const auto isLine = [](const QColor& c) { return c.red() > 100; };
// Where the rectangle covers black the fill alone leaves a dark blue.
const auto isBlue = [](const QColor& c) { return c.blue() > c.red() + 40; };

class ViewTest : public GlWindowTest
{
protected:
  void open(const std::string& newick, int w, int h)
  {
    view = nullptr; // before its context
    openWindow(w, h, false);
    view = new ViewCladogram;
    view->tree(orvex::NewickReader().parseContents(newick));
    view->update();
    view->resize(unsigned(w), unsigned(h));
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
  }

  void draw()
  {
    view->render();
    shown = picture();
  }

  struct Found
  {
    int count, low, end; // the lowest row, and the one above the highest
  };
  /// Looks between two columns and two rows. The origin is the lower left.
  Found find(bool (*wanted)(const QColor&), int x0 = 0, int x1 = 9999, int y0 = 0,
             int y1 = 9999) const
  {
    Found found{0, shown.height(), 0};
    for (int y = y0; y < std::min(y1, shown.height()); ++y)
    {
      for (int x = x0; x < std::min(x1, shown.width()); ++x)
      {
        if (wanted(shown.pixelColor(x, y)))
        {
          found = {found.count + 1, std::min(found.low, y), y + 1};
        }
      }
    }
    return found;
  }

  QImage shown;
  boost::intrusive_ptr<ViewCladogram> view; // goes before its context
};

TEST_F(ViewTest, LinesLieInTheirRowsWithLabelsBesideThem)
{
  open("((A,B),H);", 500, 300);
  draw();
  const auto rowOf = [](double y) { return static_cast<int>((y - 0.5) * (300 - 16) + 150.0); };
  const unsigned int w = view->mainViewport().width - view->camera()->horizontalPixelsForText();
  const auto columnOf = [&](double x) { return 50 + static_cast<int>((x + 0.01) * w); };
  const int root = columnOf(0.0);
  const int leaves = columnOf(1.0);
  const int row = rowOf(1.0 / 3.0);
  EXPECT_EQ(find(isWhite, root + 1, leaves - 1, row, row + 1).count, leaves - root - 2);
  const auto label = find(isLit, leaves + 2, leaves + 20, row - 20, row + 20);
  EXPECT_NEAR(label.end - label.low, 11, 2) << "a capital in an em of 15 pixels";
  EXPECT_NEAR((label.low + label.end) / 2.0, row, 1.5) << "its centre is at the leaf";
  EXPECT_GT(label.count, 25) << "strokes, not outlines of squares";
  EXPECT_EQ(find(isLit, leaves + 5, leaves + 8, row + 2, row + 5).count, 0) << "upright strokes";
  view->camera()->pan(0.0, 3.0);
  draw();
  EXPECT_EQ(find(isLit, 50).count, 0) << "moved out of sight";
}

TEST_F(ViewTest, SmallCladesAreGreenOutlinesUntilTheGreatestZoom)
{
  open(randomNewick(3000, 5), 700, 400);
  draw();
  const int green = find(isGreen).count;
  EXPECT_TRUE(green > 1000 && green < 10000) << green << ": outlines, not filled";
  view->handleZoom(1e6);
  draw();
  EXPECT_EQ(find(isGreen).count, 0) << "the greatest zoom";
}

TEST_F(ViewTest, TheThumbnailsRectangleFollowsZoomAndPan)
{
  open(randomNewick(500, 4), 1000, 600);
  for (const auto& [zoom, pan] : std::vector<std::pair<double, double>>{
           {1.0, 0.0}, {2.0, 0.0}, {4.0, 0.2}, {4.0, -0.3}, {10.0, -0.45}})
  {
    SCOPED_TRACE(testing::Message() << "zoom " << zoom << " pan " << pan);
    view->camera()->reset();
    view->camera()->zoomByAmount(zoom - 1.0);
    view->camera()->pan(0.0, pan);
    draw();
    // The rectangle's corners by their formula.
    const double half = 600.0 / (2.0 * zoom * (600 - 16)) * 600.0;
    const double middle = (0.5 - pan) * 600.0;
    const Found blue = find(isBlue, 2, 98);
    EXPECT_NEAR(blue.low, std::max(0.0, middle - half), 1.0);
    EXPECT_NEAR(blue.end, std::min(600.0, middle + half), 1.0);
    EXPECT_GT(blue.count, 90 * (blue.end - blue.low)) << "filled";
  }
}

TEST_F(ViewTest, AFrameIsOpaqueAlsoWhereThingsAreBlended)
{
  open(randomNewick(500, 4), 1000, 600);
  view->render(); // makes the thumbnail's picture, for which another buffer is bound
  TextureName texture;
  FrameBufferObject frame;
  frame.attachTexture(texture, 1000, 600, GL_RGBA8);
  view->render();
  std::vector<GLubyte> alpha(1000 * 600);
  glReadPixels(0, 0, 1000, 600, GL_ALPHA, GL_UNSIGNED_BYTE, alpha.data());
  frame.unbind();
  texture.remove();
  EXPECT_EQ(std::count(alpha.begin(), alpha.end(), 255), 1000 * 600);
}

TEST_F(ViewTest, WithoutFramebufferObjectsTheThumbnailIsOnlyItsRectangle)
{
  open(randomNewick(500, 4), 1000, 600);
  __GLEW_EXT_framebuffer_object = GL_FALSE;
  draw();
  __GLEW_EXT_framebuffer_object = GL_TRUE;
  EXPECT_EQ(find(isLine, 2, 98).count, 0);
  EXPECT_GT(find(isBlue, 2, 98).count, 90 * 600);
}

/// The sides of all textures of the current context.
static std::vector<GLint> textureSides()
{
  std::vector<GLint> sides;
  for (GLuint name = 1; name < 400; ++name)
  {
    for (const GLenum side : {GL_TEXTURE_WIDTH, GL_TEXTURE_HEIGHT})
    {
      if (glIsTexture(name))
      {
        glBindTexture(GL_TEXTURE_2D, name);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, side, &sides.emplace_back());
      }
    }
  }
  return sides;
}

TEST_F(ViewTest, AFrameIsTheSameWithTexturesOfPowersOfTwo)
{
  open(randomNewick(40, 4), 777, 555);
  draw();
  const QImage usual = shown;
  open(randomNewick(40, 4), 777, 555);
  __GLEW_ARB_texture_non_power_of_two = GL_FALSE;
  draw();
  const std::vector<GLint> sides = textureSides();
  __GLEW_ARB_texture_non_power_of_two = GL_TRUE;
  EXPECT_GT(sides.size(), 40u);
  EXPECT_TRUE(std::all_of(sides.begin(), sides.end(), [](GLint n) { return (n & (n - 1)) == 0; }));
  EXPECT_EQ(pixelsThatDiffer(shown, usual), 0);
}

TEST_F(ViewTest, TheThumbnailShowsTheWholeTreeAndIsMadeAgainByAResizeOnly)
{
  open("((A,B),C);", 500, 300);
  draw();
  // The unit square fills the column exactly: a leaf's line lies at its share of the height.
  EXPECT_GT(find(isLine, 3, 49, 99, 102).count, 42) << "the line to C at a third";
  view->tree(orvex::NewickReader().parseContents("(a,b,c,d,e,f);"));
  view->update();
  draw();
  EXPECT_NEAR(find(isLine, 40, 49).low, 100, 1) << "still the old picture";
  std::vector<GLuint> names(400);
  std::iota(names.begin(), names.end(), 1u);
  const auto objects = [&]
  {
    return std::count_if(names.begin(), names.end(), glIsTexture) +
           std::count_if(names.begin(), names.end(), glIsFramebufferEXT);
  };
  const auto before = objects();
  for (unsigned int w = 500; w > 0; w -= 10) // at last no column at all
  {
    view->resize(w, w / 2);
    view->render();
  }
  view->resize(500, 300);
  draw();
  EXPECT_NEAR(find(isLine, 40, 49).low, 50, 1);
  EXPECT_EQ(objects(), before);
  EXPECT_FALSE(view->settings()->alwaysUseHighLod());
}
