#include "render/gl/GlCanvas.h"
#include "render/gl/SceneFixture.h"

#include "render/gl/FrameBufferObject.h"
#include "render/gl/Image.h"
#include "render/gl/Texture2D.h"
#include "render/gl/ViewCladogram.h"

#include <cmath>

namespace orvex::test
{
namespace
{

using namespace render::gl;

// Where the rectangle covers black the fill alone leaves a dark blue.
bool isBlue(const Colour& c)
{
  return c[2] > c[0] + 40;
}

class Thumbnail : public GlCanvas
{
protected:
  void show(const std::string& newick, int width, int height)
  {
    open(width, height);
    makeView(newick);
    view->resize(static_cast<unsigned int>(width), static_cast<unsigned int>(height));
    draw();
  }

  void makeView(const std::string& newick)
  {
    view = new ViewCladogram;
    view->tree(NewickReader().parseContents(newick));
    view->update();
  }

  void draw()
  {
    view->render();
    read();
  }

  /// The rows that the rectangle should cover, by the arithmetic of its corners.
  std::pair<double, double> expectedRows() const
  {
    const double h = height();
    const double half = h / (2.0 * view->camera()->zoom() * (h - 16));
    const double middle = -view->camera()->position().y;
    return {(middle - half) * h, (middle + half) * h};
  }

  void TearDown() override { view = nullptr; }

  boost::intrusive_ptr<ViewCladogram> view;
};

TEST_F(Thumbnail, ShowsTheWholeTreeInTheLeftTenth)
{
  show("((A,B),C);", 1000, 600);
  ASSERT_EQ(view->thumbnailViewport().width, 100u);
  // The unit square fills the column exactly: a leaf's line lies at its share of the height.
  int lit = 0;
  for (int x = 5; x < 98; ++x)
  {
    lit += pixel(x, 200)[0] > 100 || pixel(x, 199)[0] > 100 ? 1 : 0;
  }
  EXPECT_GT(lit, 85) << "the line to C at a third of the height";
  EXPECT_GT(count(isBlue), 100 * 500);
}

TEST_F(Thumbnail, RectangleFollowsZoomAndPan)
{
  show(randomNewick(500, 4), 1000, 600);
  for (const auto& [zoom, pan] : std::vector<std::pair<double, double>>{
           {1.0, 0.0}, {2.0, 0.0}, {4.0, 0.2}, {4.0, -0.3}, {10.0, -0.45}})
  {
    SCOPED_TRACE(testing::Message() << "zoom " << zoom << " pan " << pan);
    view->camera()->reset();
    view->camera()->zoomByAmount(zoom - 1.0);
    view->camera()->pan(0.0, pan);
    draw();
    const auto [low, high] = expectedRows();
    int lowest = 0;
    const int rows = rowsWith(2, 98, isBlue, &lowest);
    EXPECT_NEAR(lowest, std::max(0.0, low), 1.0);
    EXPECT_NEAR(lowest + rows, std::min(600.0, high), 1.0);
  }
}

TEST_F(Thumbnail, IsMadeAgainByAResizeAndNothingElse)
{
  show("((A,B),C);", 500, 300);
  view->tree(NewickReader().parseContents("(a,b,c,d,e,f);"));
  view->update();
  draw();
  const auto lit = [](const Colour& c) { return c[0] > 100; };
  int lowest = 0;
  rowsWith(40, 49, lit, &lowest);
  EXPECT_NEAR(lowest, 100, 1) << "still the old picture, whose lowest leaf is at a third";
  view->resize(500, 300);
  draw();
  rowsWith(40, 49, lit, &lowest);
  EXPECT_NEAR(lowest, 50, 1);
}

TEST_F(Thumbnail, LeavesSettingsAndStateAsTheyWere)
{
  show(randomNewick(500, 4), 500, 300);
  EXPECT_FALSE(view->settings()->alwaysUseHighLod());
  EXPECT_TRUE(view->settings()->drawText());
  GLint bound = -1;
  glGetIntegerv(GL_FRAMEBUFFER_BINDING_EXT, &bound);
  EXPECT_EQ(bound, 0);
  GLint depth = -1;
  glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &depth);
  EXPECT_EQ(depth, 0);
  GLboolean mask = GL_FALSE;
  glGetBooleanv(GL_DEPTH_WRITEMASK, &mask);
  EXPECT_EQ(mask, GL_TRUE);
}

// Names of OpenGL objects are given out anew once they are free, so a leak shows in ever larger
// ones.
TEST_F(Thumbnail, ManyResizesLeakNoOpenGLObjects)
{
  show("((A,B),C);", 500, 300);
  const auto objects = []
  {
    int alive = 0;
    for (GLuint name = 1; name < 400; ++name)
    {
      alive += glIsTexture(name) ? 1 : 0;
      alive += glIsFramebufferEXT(name) ? 1 : 0;
    }
    return alive;
  };
  const int before = objects();
  for (unsigned int step = 0; step < 100; ++step)
  {
    view->resize(500 - step, 300 - step);
    view->render();
  }
  view->resize(9, 300); // no column at all
  view->render();
  view->resize(500, 300);
  draw();
  EXPECT_EQ(objects(), before);
}

TEST_F(Thumbnail, WithoutFramebufferSupportTheColumnStaysBlackUnderItsRectangle)
{
  open(1000, 600);
  makeView("((A,B),C);");
  __GLEW_EXT_framebuffer_object = GL_FALSE;
  view->resize(1000, 600);
  draw();
  draw();
  __GLEW_EXT_framebuffer_object = GL_TRUE;
  int lit = 0;
  for (int y = 0; y < 600; ++y)
  {
    lit += pixel(50, y)[0] > 100 ? 1 : 0;
  }
  EXPECT_EQ(lit, 0);
  EXPECT_TRUE(isBlue(pixel(50, 300)));
}

TEST_F(Thumbnail, TexturesUploadTheirImageOnce)
{
  open(64, 64);
  const boost::intrusive_ptr<Image> image(new Image);
  image->init(3, 2, GL_RGB);
  EXPECT_EQ(image->data(1, 2) - image->buffer(), 3 * 3 + 2);
  EXPECT_THROW(image->init(5, 5, GL_DEPTH_COMPONENT), std::runtime_error);
  EXPECT_NE(image->buffer(), nullptr) << "the earlier pixels stay";
  for (const auto& [format, channels] : std::vector<std::pair<GLenum, unsigned int>>{
           {GL_ALPHA, 1}, {GL_RGB, 3}, {GL_RGBA, 4}, {GL_LUMINANCE, 1}, {GL_LUMINANCE_ALPHA, 2}})
  {
    image->init(3, 2, format);
    EXPECT_EQ(image->numChannels(), channels);
  }
  const boost::intrusive_ptr<Texture2D> nothing(new Texture2D(nullptr));
  nothing->apply();
  EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_FALSE);

  image->init(3, 2, GL_RGB); // rows of nine bytes, which no alignment but one fits
  const unsigned char pixels[18] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
  std::copy(std::begin(pixels), std::end(pixels), image->buffer());
  const boost::intrusive_ptr<Texture2D> texture(new Texture2D(image));
  texture->apply();
  image->buffer()[0] = 99;
  texture->apply();
  unsigned char back[18] = {};
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glGetTexImage(GL_TEXTURE_2D, 0, GL_RGB, GL_UNSIGNED_BYTE, back);
  EXPECT_TRUE(std::equal(std::begin(pixels), std::end(pixels), std::begin(back)));
  texture->releaseGLObjects();
}

} // namespace
} // namespace orvex::test
