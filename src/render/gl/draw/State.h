#pragma once

#include "foundation/counted/Referenced.h"
#include "foundation/math/Matrix44.h"
#include "render/Viewport.h"
#include "render/gl/draw/Batch.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace orvex::render::gl
{

/// The viewport and the matrices of one drawing pass. Only records; touches no OpenGL.
class State : public Kelmar::Base::Referenced
{
public:
  const Viewport& viewport() const { return _viewport; }
  void viewport(const Viewport& viewport) { _viewport = viewport; }

  const Kelmar::Math::Matrix44d& modelViewMatrix() const { return _modelView; }
  void modelViewMatrix(const Kelmar::Math::Matrix44d& matrix) { _modelView = matrix; }

  const Kelmar::Math::Matrix44d& projectionMatrix() const { return _projection; }
  void projectionMatrix(const Kelmar::Math::Matrix44d& matrix) { _projection = matrix; }

  /// From the coordinates of the pass to window coordinates. Computed on each call.
  Kelmar::Math::Matrix44d getLocalToScreenMatrix() const;

  /// What the drawables of the pass draw with; one is made where none was given.
  Batch& batch();
  void batch(const boost::intrusive_ptr<Batch>& batch) { _batch = batch; }

private:
  Viewport _viewport;
  Kelmar::Math::Matrix44d _modelView;
  Kelmar::Math::Matrix44d _projection;
  boost::intrusive_ptr<Batch> _batch;
};

} // namespace orvex::render::gl
