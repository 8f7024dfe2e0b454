#include "render/gl/OpenGL.h"

#include "render/gl/GlCanvas.h"
#include "render/gl/Image.h"
#include "render/gl/SceneFixture.h"
#include "render/gl/Texture2D.h"

namespace
{

using namespace orvex::render;
using namespace orvex::render::gl;
using namespace orvex::test;
using Thumbnail = GlCanvas;

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
  EXPECT_FALSE(view->settings()->alwaysUseHighLod());
  for (const auto& [name, expected] : std::vector<std::pair<GLenum, GLint>>{
           {GL_FRAMEBUFFER_BINDING_EXT, 0}, {GL_ATTRIB_STACK_DEPTH, 0}, {GL_DEPTH_WRITEMASK, 1}})
  {
    GLint value = -1;
    glGetIntegerv(name, &value);
    EXPECT_EQ(value, expected) << name;
  }
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
  EXPECT_EQ(image->data(1, 2) - image->buffer(), 9 + 2);
  boost::intrusive_ptr<Texture2D>(new Texture2D(nullptr))->apply();
  EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_FALSE);

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
