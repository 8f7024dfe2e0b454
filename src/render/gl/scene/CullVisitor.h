#pragma once

#include "foundation/math/Matrix44.h"
#include "render/camera/Culler2D.h"
#include "render/camera/DisplaySettings.h"
#include "render/gl/draw/PixelGrid.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/Visitor.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex::render::gl
{

class RenderGraph;

/// Decides for one frame which parts of a scene are visible and in how much detail, and lists them.
/// Draws nothing and needs no context. A clade out of view, one that is shown as its proxy and one
/// whose lines are a single run of pixels are not opened: so a walk meets some nodes for each row
/// of pixels, however large the tree is.
class CullVisitor : public Visitor
{
public:
  /// \param state  not null
  /// \param renderGraph  the caller's, for as long as this visitor is used
  /// \param settings  not null; they stay as they are while this visitor is used
  /// \throws std::runtime_error  if the state's matrices can't be inverted
  CullVisitor(State* state, unsigned int zoomLevel, unsigned int numberOfZoomLevels,
              RenderGraph* renderGraph, boost::intrusive_ptr<DisplaySettings> settings);

  using Visitor::visit;
  void visit(RenderNode& node) override;
  void visit(RenderTaxonLabels& labels) override;

private:
  bool _showsProxies() const;
  bool _isShownAsProxy(const RenderNode& node) const;
  bool _isDrawnAsRun(const RenderNode& node) const;
  double _shareOfHeight(const Box2D& box) const;

  boost::intrusive_ptr<State> _state;
  boost::intrusive_ptr<Culler2D> _culler;
  unsigned int _zoomLevel;
  unsigned int _numberOfZoomLevels;
  RenderGraph* _renderGraph;
  boost::intrusive_ptr<DisplaySettings> _displaySettings;
  // The state doesn't change during a pass, so the product of its matrices is formed once.
  Kelmar::Math::Matrix44d _localToScreen;
  PixelGrid _grid;
};

} // namespace orvex::render::gl
