#include "paper/Strip.h"

#include "paper/TreeScene.h"
#include "render/camera/DisplaySettings.h"
#include "render/camera/DrawingPass.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/CullPass.h"
#include "render/gl/scene/RenderTaxonLabels.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

namespace orvex::paper
{
namespace Detail
{
namespace
{

constexpr double emOfLabels = 15.0;       // in pixels, as all here that is not in points
constexpr unsigned int margins = 16;      // of the camera, in height
constexpr double shareBesideTree = 0.012; // the camera moves the tree to the right, and labels too
constexpr double narrowestTree = 150.0;   // in points
constexpr double widestTree = 400.0;      // in points
constexpr double leastTree = 36.0;        // in points

double widestName(const TreeScene& scene, Typeface& typeface)
{
  double widest = 0.0;
  for (const auto& label : scene.labels().texts())
  {
    widest = std::max(widest, typeface.width(label->text()));
  }
  return widest * emOfLabels;
}

} // namespace
} // namespace Detail

Strip::Strip(const TreeScene& scene, Typeface& typeface, double leafHeight,
             std::optional<double> width)
    : _scene(scene),
      _scale(leafHeight / render::mostPixelsPerLeaf),
      _camera(new render::CameraCladogram)
{
  const double names = std::ceil(Detail::widestName(scene, typeface)) + render::gapBesideText;
  const unsigned int height = scene.numberOfLabels() * render::mostPixelsPerLeaf + Detail::margins;
  const double suitable =
      std::clamp(0.6 * height * _scale, Detail::narrowestTree, Detail::widestTree) / _scale;
  const double room = width ? *width / _scale : suitable + names;
  _camera->horizontalPixelsForText(
      static_cast<unsigned int>(names + std::ceil(room * Detail::shareBesideTree)));
  const double tree = room - _camera->horizontalPixelsForText();
  if (width && tree * _scale < Detail::leastTree)
  {
    throw std::runtime_error(
        "the names need " +
        std::to_string(std::lround(std::ceil(_camera->horizontalPixelsForText() * _scale))) +
        " points of the width, which leaves no room for the tree");
  }
  const double atLeast = width ? tree : std::max(tree, suitable);
  _area.set(0, 0, static_cast<unsigned int>(atLeast) + _camera->horizontalPixelsForText(), height);
}

unsigned int Strip::leaves() const
{
  return _scene.numberOfLabels();
}

render::DrawingPass Strip::pass(const render::Viewport& part) const
{
  using Kelmar::Math::Matrix44d;
  const render::Viewport view{0, 0, part.width, part.height};
  return {view, render::mainProjection(view),
          Matrix44d::translation({-double(part.x), -double(part.y), 0.0}) *
              _camera->viewMatrix(_area)};
}

render::gl::RenderGraph Strip::cull(const render::DrawingPass& pass, double lineWidth) const
{
  const boost::intrusive_ptr<render::DisplaySettings> settings(new render::DisplaySettings);
  settings->alwaysUseHighLod(true);
  const boost::intrusive_ptr<render::gl::State> state(new render::gl::State(pass));
  state->joinsLines(lineWidth >= _scale);
  state->thinsLabels(false);
  return cullPass(&_scene.root(), *state, *_camera, *settings);
}

} // namespace orvex::paper
