#pragma once

#include "foundation/counted/Referenced.h"
#include "render/camera/CameraCladogram.h"
#include "render/camera/DisplaySettings.h"

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex
{
class Tree;
}

namespace orvex::render
{

struct MouseEvent;

/// The interface between the window and the drawing: holds a tree, a camera and the display's
/// switches, and names the operations that a widget calls.
class View : public Kelmar::Base::Referenced
{
public:
  View();
  ~View() noexcept(false) override;

  /// Changes the camera by the movement of the mouse between two events.
  /// \throws std::runtime_error  if the view's matrices can't be inverted
  virtual void handleNavigation(const MouseEvent& current, const MouseEvent& last) = 0;
  /// Zooms by a fraction of the present zoom: 0.1 is a tenth closer.
  virtual void handleZoom(double amount) = 0;
  /// Takes the size of the widget in pixels.
  virtual void resize(unsigned int width, unsigned int height) = 0;
  /// Makes what the next frame would make first, so that this frame takes little time. Needs the
  /// current context, but draws nothing that is seen.
  virtual void prepare() = 0;
  /// Draws one frame into the current context.
  /// \throws std::runtime_error  if the view's matrices can't be inverted
  virtual void render() = 0;
  /// Makes again what is made once for each tree; without a tree, nothing.
  /// \throws std::runtime_error  if the font library can't start
  /// \throws std::bad_alloc  if there is no memory for it; the scene of before stays
  virtual void update() = 0;

  boost::shared_ptr<Tree> tree() const { return _tree; }
  /// Stores the tree, or null for none, and does nothing else: update() builds its scene.
  void tree(boost::shared_ptr<Tree> tree) { _tree = tree; }

  /// Never null.
  DisplaySettings* settings() const { return _settings.get(); }
  /// Never null.
  CameraCladogram* camera() const { return _camera.get(); }

private:
  boost::shared_ptr<Tree> _tree;
  boost::intrusive_ptr<DisplaySettings> _settings;
  boost::intrusive_ptr<CameraCladogram> _camera;
};

} // namespace orvex::render
