#include "render/gl/device/OpenGL.h"

#include "render/gl/device/Texture2D.h"
#include "support/Outcome.h"
#include "support/RecordedOpenGL.h"

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
}

TEST(Texture2D, UploadsItsImageOnceThenOnlyBindsItself)
{
  const boost::intrusive_ptr<Image> image(new Image);
  image->init(3, 2, GL_RGB);
  const boost::intrusive_ptr<Texture2D> texture(new Texture2D(image));
  GLuint name = 0;
  EXPECT_EQ(callsOf([&] { texture->apply(); }),
            callsOf(
                [&]
                {
                  glEnable(GL_TEXTURE_2D);
                  glGenTextures(1, &name);
                  glBindTexture(GL_TEXTURE_2D, name);
                  glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT);
                  glPixelStorei(GL_UNPACK_LSB_FIRST, 0);
                  glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
                  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
                  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
                  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
                  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
                  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
                  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGB, 3, 2, 0, GL_RGB, GL_UNSIGNED_BYTE,
                               image->buffer());
                  glPopClientAttrib();
                }));
  EXPECT_EQ(callsOf([&] { texture->apply(), texture->releaseGLObjects(); }),
            callsOf(
                [&]
                {
                  glEnable(GL_TEXTURE_2D);
                  glBindTexture(GL_TEXTURE_2D, name);
                  glDeleteTextures(1, &name);
                }));
}

TEST(Texture2D, WithoutAnImageLeavesOpenGLAlone)
{
  const boost::intrusive_ptr<Texture2D> texture(new Texture2D(nullptr));
  EXPECT_EQ(callsOf([&] { texture->apply(); }), "");
}
