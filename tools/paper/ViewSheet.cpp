#include "paper/ViewSheet.h"

#include "foundation/progress/Work.h"
#include "paper/DrawingStages.h"
#include "paper/PassDrawing.h"
#include "paper/TreeScene.h"
#include "render/camera/CameraCladogram.h"
#include "render/camera/DisplaySettings.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/CullPass.h"
#include "tree/model/Tree.h"

namespace orvex::paper
{
namespace Detail
{
namespace
{

using render::CameraCladogram;
using render::DisplaySettings;
using render::DrawingPass;
using render::gl::State;

boost::intrusive_ptr<CameraCladogram> makeCamera(const TreeScene& scene,
                                                 const render::Viewport& area)
{
  boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
  camera->horizontalPixelsForText(scene.widestLabel() + render::gapBesideText);
  camera->updateZoomInformation(scene.tree().getNumberOfLeafNodes(), render::mostPixelsPerLeaf,
                                area);
  return camera;
}

/// The sheet of a view.
class ViewSheet
{
public:
  ViewSheet(const TreeScene& scene, const ViewLook& look, Canvas& canvas)
      : _scene(scene),
        _look(look),
        _canvas(canvas),
        _areas(look.width, look.height),
        _camera(makeCamera(scene, _areas.main))
  {
  }

  void draw()
  {
    _canvas.beginSheet(_look.width, _look.height);
    // As a window does before its user can zoom. Labels are thinned once for each level of the
    // zoom.
    _cull(_mainPass(), _look.all, true);
    _camera->zoomByAmount(_look.zoom - _camera->zoom());
    _camera->pan(0.0, _look.pan);
    if (!_areas.thumbnail.empty())
    {
      _drawThumbnail();
    }
    _drawPass(_mainPass(), _look.all, true);
  }

private:
  DrawingPass _mainPass() const { return mainPass(*_camera, _areas.main); }
  Placement _placement() const { return {{0.0, double(_look.height)}, 1.0}; }

  render::gl::RenderGraph _cull(const DrawingPass& pass, bool all, bool drawText)
  {
    const boost::intrusive_ptr<DisplaySettings> settings(new DisplaySettings);
    settings->alwaysUseHighLod(all);
    settings->drawText(drawText);
    const boost::intrusive_ptr<State> state(new State(pass));
    // Of lines that are narrower than a pixel, several have room in it.
    state->joinsLines(_look.lineWidth >= 1.0);
    return cullPass(&_scene.root(), *state, *_camera, *settings);
  }

  void _drawPass(const DrawingPass& pass, bool all, bool drawText)
  {
    const render::gl::RenderGraph graph = _cull(pass, all, drawText);
    Kelmar::Progress::Work work(DrawingStages::drawing, PassDrawing::units(graph));
    PassDrawing(_canvas, pass, _placement(), _look.lineWidth).draw(graph, work);
  }

  void _drawThumbnail()
  {
    const DrawingPass pass = thumbnailPass(_areas.thumbnail);
    _drawPass(pass, true, false);
    const Box2D part = shownPart(_mainPass());
    const Kelmar::Math::Matrix44d toWindow = pass.computeLocalToScreenMatrix();
    const auto toSheet = [&](const Point& world)
    {
      return _placement().toSheet(
          Point{toWindow[0] * world.x + toWindow[12], toWindow[5] * world.y + toWindow[13]});
    };
    Box2D box;
    box.add(toSheet(part.minimum));
    box.add(toSheet(part.maximum));
    _canvas.mark(box);
  }

  const TreeScene& _scene;
  const ViewLook& _look;
  Canvas& _canvas;
  render::WindowAreas _areas;
  boost::intrusive_ptr<CameraCladogram> _camera;
};

} // namespace
} // namespace Detail

void drawView(const TreeScene& scene, const ViewLook& look, Canvas& canvas)
{
  Detail::ViewSheet(scene, look, canvas).draw();
}

} // namespace orvex::paper
