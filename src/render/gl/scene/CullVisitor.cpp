#include "render/gl/scene/CullVisitor.h"

#include "render/gl/draw/CladeRun.h"
#include "render/gl/draw/RenderGraph.h"
#include "render/gl/scene/RenderNode.h"
#include "render/gl/scene/RenderTaxonLabels.h"

#include <utility>
#include <vector>

namespace orvex::render::gl
{
namespace Detail
{
namespace
{

// A clade that fills this share of the viewport's height is never shown as a proxy.
constexpr double leastOpenShare = 0.25;

} // namespace
} // namespace Detail

CullVisitor::CullVisitor(State* state, unsigned int zoomLevel, unsigned int numberOfZoomLevels,
                         RenderGraph* renderGraph, boost::intrusive_ptr<DisplaySettings> settings)
    : _state(state),
      _culler(new Culler2D(state->modelViewMatrix(), state->projectionMatrix())),
      _zoomLevel(zoomLevel),
      _numberOfZoomLevels(numberOfZoomLevels),
      _renderGraph(renderGraph),
      _displaySettings(std::move(settings)),
      _localToScreen(state->getLocalToScreenMatrix()),
      _grid(state->viewport(), _localToScreen)
{
}

void CullVisitor::visit(RenderNode& node)
{
  if (_culler->isCulled(node.boundingBox()))
  {
    return;
  }
  if (_isShownAsProxy(node))
  {
    _renderGraph->addLowLod(node.lowLod());
    return;
  }
  if (_isDrawnAsRun(node))
  {
    _renderGraph->addRun(node.boundingBox());
    return;
  }
  _renderGraph->addHighLod(node.highLod());
  node.traverse(*this);
}

bool CullVisitor::_showsProxies() const
{
  return !_displaySettings->alwaysUseHighLod() && // the user wants to see every line
         _zoomLevel != _numberOfZoomLevels &&     // at the greatest zoom there is room for them
         _numberOfZoomLevels != 1;                // a small tree has room for them at any zoom
}

bool CullVisitor::_isShownAsProxy(const RenderNode& node) const
{
  return _showsProxies() &&   //
         node.canBeProxy() && // near the leaves, lines are as cheap
         // The closer the user looks, the nearer to the leaves a clade must be.
         node.lodFraction() * _numberOfZoomLevels > _zoomLevel &&
         // A clade that is large on the screen is opened, wherever it lies in the tree.
         _shareOfHeight(node.boundingBox()) < Detail::leastOpenShare;
}

// A clade in which a proxy could be shown is opened, since a proxy is green.
bool CullVisitor::_isDrawnAsRun(const RenderNode& node) const
{
  return _state->joinsLines() && !(_showsProxies() && node.canBeProxy()) &&
         lightsOneRun(node.boundingBox(), _grid);
}

double CullVisitor::_shareOfHeight(const Box2D& box) const
{
  using Kelmar::Math::Vector3d;
  const Vector3d low = _localToScreen * Vector3d(box.minimum.x, box.minimum.y, 0.0);
  const Vector3d high = _localToScreen * Vector3d(box.maximum.x, box.maximum.y, 0.0);
  const Viewport& viewport = _state->viewport();
  // The height less y is how the rule defines it; all viewports here have a y of 0.
  return (high[1] - low[1]) / (double(viewport.height) - double(viewport.y));
}

void CullVisitor::visit(RenderTaxonLabels& labels)
{
  if (!_displaySettings->drawText())
  {
    return;
  }
  // Only y is tested. A label at the left or right of the viewport is listed, and OpenGL clips it.
  const Viewport& viewport = _state->viewport();
  std::vector<Text*> shown;
  labels.findTextForLevel(_zoomLevel, *_state, viewport.y, viewport.height, shown);
  for (Text* text : shown)
  {
    _renderGraph->addText(text);
  }
}

} // namespace orvex::render::gl
