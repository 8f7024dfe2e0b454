#include "snapshot/Picture.h"

#include "render/camera/CameraCladogram.h"
#include "render/camera/DisplaySettings.h"
#include "render/gl/view/ViewCladogram.h"

#include <boost/core/noncopyable.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>

#include <array>
#include <stdexcept>
#include <string>

namespace orvex::snapshot
{
namespace Detail
{
namespace
{

using render::gl::ViewCladogram;

constexpr int usualDotsPerMeter = 3780; // 96 to an inch

/// A context that is current until the end of the scope.
class CurrentContext : private boost::noncopyable
{
public:
  CurrentContext()
  {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL); // not its form for embedded systems
    _surface.setFormat(format);
    _context.setFormat(format);
    _surface.create();
    if (!_context.create() || !_context.makeCurrent(&_surface))
    {
      throw std::runtime_error("this display gives no OpenGL context");
    }
  }

private:
  QOffscreenSurface _surface;
  QOpenGLContext _context;
};

QOpenGLFramebufferObjectFormat formatOfWindow()
{
  QOpenGLFramebufferObjectFormat format;
  format.setInternalTextureFormat(GL_RGB8);
  format.setAttachment(QOpenGLFramebufferObject::Depth);
  format.setSamples(4);
  return format;
}

// A driver may keep the rows of a window from the top downward, those of other buffers from the
// bottom upward. The samples of a pixel don't lie symmetrically, so the shades of a slanted line
// would differ.
void drawAsInWindow()
{
  using SetParameter = void(QOPENGLF_APIENTRYP)(GLenum target, GLenum name, GLint value);
  constexpr GLenum fromTheTop = 0x8BBB; // GL_FRAMEBUFFER_FLIP_Y_MESA
  const QOpenGLContext& context = *QOpenGLContext::currentContext();
  if (context.hasExtension("GL_MESA_framebuffer_flip_y"))
  {
    const auto set =
        reinterpret_cast<SetParameter>(context.getProcAddress("glFramebufferParameteri"));
    set(GL_FRAMEBUFFER, fromTheTop, GL_TRUE);
  }
}

/// A frame of the picture's size to draw into, with a depth buffer and four samples for each pixel.
class Frame : private boost::noncopyable
{
public:
  explicit Frame(const QSize& size) : _size(size), _buffer(size, formatOfWindow())
  {
    std::array<GLint, 2> largest{};
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, largest.data());
    require(size.width() <= largest[0] && size.height() <= largest[1]);
    require(_buffer.isValid() && _buffer.attachment() == QOpenGLFramebufferObject::Depth);
    _buffer.bind();
    drawAsInWindow();
  }

  QImage picture() const
  {
    // Before Qt drops the errors of the drawing.
    require(glGetError() == GL_NO_ERROR);
    QImage image = _buffer.toImage();
    require(!image.isNull() && glGetError() == GL_NO_ERROR);
    // Not that of the display, with which files of the same picture would differ.
    image.setDotsPerMeterX(usualDotsPerMeter);
    image.setDotsPerMeterY(usualDotsPerMeter);
    return image;
  }

private:
  void require(bool fulfilled) const
  {
    if (!fulfilled)
    {
      throw std::runtime_error("OpenGL can't draw a picture of " + std::to_string(_size.width()) +
                               "x" + std::to_string(_size.height()) + " pixels here");
    }
  }

  QSize _size;
  QOpenGLFramebufferObject _buffer;
};

void draw(ViewCladogram& view, const Look& look)
{
  view.settings()->alwaysUseHighLod(look.all);
  view.resize(static_cast<unsigned int>(look.size.width()),
              static_cast<unsigned int>(look.size.height()));
  // As a window does before its user can zoom. Labels are thinned once for each level of the zoom.
  view.render();
  view.camera()->zoomByAmount(look.zoom - view.camera()->zoom());
  view.camera()->pan(0.0, look.pan);
  view.render();
}

} // namespace
} // namespace Detail

QImage drawPicture(const boost::shared_ptr<Tree>& tree, const Look& look)
{
  const Detail::CurrentContext context;
  const Detail::Frame frame(look.size);
  const boost::intrusive_ptr<render::gl::ViewCladogram> view(new render::gl::ViewCladogram);
  view->tree(tree);
  view->update();
  Detail::draw(*view, look);
  return frame.picture();
}

} // namespace orvex::snapshot
