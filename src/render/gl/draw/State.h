#pragma once

#include "foundation/counted/Referenced.h"
#include "foundation/math/Matrix44.h"
#include "render/camera/DrawingPass.h"
#include "render/gl/draw/Batch.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex::render::gl
{

/// The pass that is being drawn, for the drawables and the scene. Touches no OpenGL.
class State : public Kelmar::Base::Referenced
{
public:
  /// An empty viewport and identities.
  State() = default;
  explicit State(const DrawingPass& pass) : _pass(pass) {}

  const Viewport& viewport() const { return _pass.viewport; }
  void viewport(const Viewport& viewport) { _pass.viewport = viewport; }

  const Kelmar::Math::Matrix44d& modelViewMatrix() const { return _pass.modelView; }
  void modelViewMatrix(const Kelmar::Math::Matrix44d& matrix) { _pass.modelView = matrix; }

  const Kelmar::Math::Matrix44d& projectionMatrix() const { return _pass.projection; }
  void projectionMatrix(const Kelmar::Math::Matrix44d& matrix) { _pass.projection = matrix; }

  /// From the coordinates of the pass to window coordinates. Computed on each call.
  Kelmar::Math::Matrix44d getLocalToScreenMatrix() const;

  /// What the drawables of the pass draw with; one is made where none was given.
  Batch& batch();
  void batch(const boost::intrusive_ptr<Batch>& batch) { _batch = batch; }

  /// Whether a clade whose lines light one run of pixels may be drawn as that run, as at first. If
  /// not, each of its lines is drawn, to the same pixels: for comparisons.
  bool joinsLines() const { return _joinsLines; }
  void joinsLines(bool value) { _joinsLines = value; }

  /// Whether labels that would run into each other are left out, as at first. If not, all are
  /// drawn.
  bool thinsLabels() const { return _thinsLabels; }
  void thinsLabels(bool value) { _thinsLabels = value; }

private:
  DrawingPass _pass;
  boost::intrusive_ptr<Batch> _batch;
  bool _joinsLines = true;
  bool _thinsLabels = true;
};

} // namespace orvex::render::gl
