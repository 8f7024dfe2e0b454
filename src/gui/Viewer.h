#pragma once

#include <boost/core/noncopyable.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <QGLWidget>

#include <string>

namespace orvex
{
class Tree;
}

namespace orvex::render
{
class CameraCladogram;
class DisplaySettings;
class View;
struct MouseEvent;
} // namespace orvex::render

namespace Lumbra
{

/// The widget that shows one tree: owns its view and passes Qt's events to it. It draws only when
/// Qt asks for it, or after an event that may have changed the picture.
class Viewer : public QGLWidget, private boost::noncopyable
{
public:
  /// Makes an OpenGL context of its own and leaves it current.
  /// \param place  in the parent, where it will be shown; empty if that is not known. OpenGL draws
  ///               the first frame in the size that it has here
  /// \throws std::runtime_error  if the display gives no OpenGL context
  explicit Viewer(QWidget* parent, const QRect& place = QRect());
  /// Makes its own context current first, since that of another viewer may be.
  ~Viewer() override;

  /// Stores the tree, or null for none; updateScene() builds its scene.
  void tree(boost::shared_ptr<orvex::Tree> tree);
  boost::shared_ptr<orvex::Tree> tree() const;
  /// Builds what the view needs for its tree; without one, nothing. Asks for no repaint.
  /// \throws  as View::update does; what was shown stays
  void updateScene();
  /// Makes what the first frame needs, before the widget is shown, so that it stands at once when
  /// the widget is shown in its present size. Does nothing if the context can't be used before.
  void prepare();

  /// Owned by the view, as is the camera.
  orvex::render::DisplaySettings* settings();
  const orvex::render::DisplaySettings* settings() const;
  orvex::render::CameraCladogram* camera();
  const orvex::render::CameraCladogram* camera() const;

  /// What the widget shows, at its size in pixels. The widget must have been shown.
  QImage picture();
  /// Writes the picture in the format of the name's suffix. A failure is silent and leaves no
  /// file, or the one that was there.
  void writeImageFile(const std::string& name);

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeGL(int width, int height) override;
  void paintGL() override;

private:
  void _endDrag();
  void _navigate(QMouseEvent* event);

  boost::intrusive_ptr<orvex::render::View> _view;
  // Null outside a drag; the last one also at the start of a drag.
  boost::shared_ptr<orvex::render::MouseEvent> _currentMouse;
  boost::shared_ptr<orvex::render::MouseEvent> _lastMouse;
  // No frame was drawn since.
  bool _wasResized = false;
  // For which size in pixels the first frame is prepared; empty from the first resize on.
  QSize _prepared;
};

} // namespace Lumbra
