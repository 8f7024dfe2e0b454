#include "render/gl/device/OpenGL.h"

#include "render/gl/device/Image.h"
#include "support/Outcome.h"

using namespace orvex::render::gl;

TEST(Image, HasAByteForEachChannelAndRowsWithoutGaps)
{
  const boost::intrusive_ptr<Image> image(new Image);
  for (const auto& [format, channels] :
       {std::pair(GL_ALPHA, 1u), std::pair(GL_LUMINANCE, 1u), std::pair(GL_LUMINANCE_ALPHA, 2u),
        std::pair(GL_RGB, 3u), std::pair(GL_RGBA, 4u)})
  {
    image->init(5, 3, GLenum(format));
    EXPECT_EQ(image->numChannels(), channels);
    EXPECT_EQ(image->data(0, 0), image->buffer());
    EXPECT_EQ(image->data(2, 1), image->buffer() + 2 * 5 * channels + 1);
    EXPECT_EQ(std::as_const(*image).data(2, 1), image->data(2, 1));
  }
  const unsigned char* const before = image->buffer();
  EXPECT_EQ(errorOf([&] { image->init(7, 2, GL_BGR); }), "Pixel format not handled.");
  EXPECT_EQ(image->buffer(), before) << "the earlier pixels stay";
  EXPECT_EQ(image->width() * image->height(), 15u) << "with their size";
}
