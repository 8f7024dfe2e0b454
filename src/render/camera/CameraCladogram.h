#pragma once

#include "foundation/counted/Referenced.h"
#include "foundation/math/Matrix44.h"
#include "render/layout/Point2D.h"

namespace orvex::render
{

/// The height of one leaf at a camera's greatest zoom, in pixels.
constexpr unsigned int mostPixelsPerLeaf = 18;
/// The room between the longest label and the right edge of the main area, in pixels.
constexpr unsigned int gapBesideText = 5;

struct Viewport;

/// Where the user looks at a cladogram, and how far zoomed in.
///
/// A cladogram is a unit square with its leaves in one column at the right. So the zoom stretches y
/// only, about the middle of the area, and panning moves along y only; x always fills the area at
/// the left of the labels. Computes numbers only and needs no OpenGL context.
class CameraCladogram : public Kelmar::Base::Referenced
{
public:
  /// Added to world coordinates before they are scaled.
  const Point2D<double>& position() const { return _position; }
  /// Moves by \p y in world units; \p x has no effect. The tree can be moved out of sight.
  void pan(double x, double y);

  /// Factor on the y axis. At 1.0, its least value, the whole tree is in view.
  double zoom() const { return _zoom; }
  double maximumZoom() const { return _maximumZoom; }
  /// Adds to the zoom, within its limits.
  void zoomByAmount(double amount);

  /// Sets position and zoom as in a new camera; the limits and the room for labels stay.
  void reset();

  /// Sets the limits and levels of the zoom for the size of a tree. The zoom itself is not changed
  /// here, even if it is above its new limit.
  /// \param pixelsPerLeaf  height of one leaf at the greatest zoom, in pixels
  /// \pre viewport.height is not 0
  void updateZoomInformation(unsigned int numberOfLeaves, unsigned int pixelsPerLeaf,
                             const Viewport& viewport);

  /// The present zoom as a level from 0 to numberOfZoomLevels(), in equal steps of zoom. Labels are
  /// thinned once for each level.
  unsigned int zoomLevel() const;
  unsigned int numberOfZoomLevels() const { return _numberOfZoomLevels; }

  unsigned int horizontalPixelsForText() const { return _horizontalPixelsForText; }
  /// Keeps room for labels at the right edge, in pixels; never less than 150.
  void horizontalPixelsForText(unsigned int pixels);

  /// From world coordinates to pixels of the area, the origin at its lower left, y upward. In an
  /// area that is not wider than the room for labels, the tree gets a third of the width; in one
  /// that is not higher than the margins, a pixel.
  Kelmar::Math::Matrix44d viewMatrix(const Viewport& viewport) const;

private:
  static constexpr Point2D<double> _startPosition{0.01, -0.5};
  static constexpr double _startZoom = 1.0;

  Point2D<double> _position = _startPosition;
  double _zoom = _startZoom;
  double _maximumZoom = 0.1;
  unsigned int _numberOfZoomLevels = 10;
  unsigned int _horizontalPixelsForText = 100;
};

} // namespace orvex::render
