#include "render/gl/device/Texture2D.h"

#include "render/gl/device/TextureUpload.h"

#include <utility>

namespace orvex::render::gl
{

Texture2D::Texture2D(boost::intrusive_ptr<Image> image) : _image(std::move(image)) {}

void Texture2D::apply()
{
  if (!_image)
  {
    return;
  }
  glEnable(GL_TEXTURE_2D);
  if (_texture.exists())
  {
    glBindTexture(GL_TEXTURE_2D, _texture.get());
    return;
  }
  uploadTexture(_texture, _image->format(), _image->width(), _image->height(), _image->buffer());
}

void Texture2D::releaseGLObjects()
{
  _texture.remove();
}

} // namespace orvex::render::gl
