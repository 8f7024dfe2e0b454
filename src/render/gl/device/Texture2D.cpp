#include "render/gl/device/Texture2D.h"

#include "render/gl/device/TextureUpload.h"

#include <utility>

namespace orvex::render::gl
{

Texture2D::Texture2D(boost::intrusive_ptr<Image> image) : _image(std::move(image)) {}

void Texture2D::apply()
{
  if (_image)
  {
    applyTexture(_texture, _image->format(), _image->width(), _image->height(), _image->buffer());
  }
}

void Texture2D::releaseGLObjects()
{
  _texture.remove();
}

} // namespace orvex::render::gl
