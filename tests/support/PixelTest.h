#pragma once

#include "support/GlWindowTest.h"

#include "render/camera/CameraCladogram.h"
#include "render/gl/draw/LineStrip.h"
#include "render/gl/draw/RenderGraph.h"
#include "support/Polyline.h"

#include <cmath>

/// Where a pass looks, in an area 60 pixels from the window's left edge.
struct Look
{
  unsigned int width, height;
  double zoom = 1.0, pan = 0.0;
  bool thumbnail = false;

  boost::intrusive_ptr<orvex::render::gl::State> state(unsigned int leaves) const
  {
    const boost::intrusive_ptr<orvex::render::gl::State> result(new orvex::render::gl::State);
    const orvex::render::Viewport area{60, 0, width, height};
    const boost::intrusive_ptr<orvex::render::CameraCladogram> camera(
        new orvex::render::CameraCladogram);
    camera->updateZoomInformation(leaves, 18, area);
    camera->zoomByAmount(zoom - 1.0);
    camera->pan(0.0, pan);
    result->viewport(area);
    result->projectionMatrix(
        thumbnail ? Kelmar::Math::Matrix44d::orthographic(0, 1, 0, 1, -10, 10)
                  : Kelmar::Math::Matrix44d::orthographic(0, width, 0, height, -10, 10));
    result->modelViewMatrix(thumbnail ? Kelmar::Math::Matrix44d() : camera->viewMatrix(area));
    return result;
  }
};

// In pixels of the area.
inline orvex::render::Point2D<double> inArea(const orvex::render::Point2D<double>& point,
                                             const orvex::render::gl::State& state)
{
  const Kelmar::Math::Vector3d at =
      state.getLocalToScreenMatrix() * Kelmar::Math::Vector3d(point.x, point.y, 0.0);
  return {at[0] - state.viewport().x, at[1] - state.viewport().y};
}

// Whether a line from one position to another lights a pixel: one that holds a part of it, where a
// pixel ends with its upper border, and the first one has its lower border too.
inline bool lights(double low, double high, int pixel)
{
  constexpr double error = 1e-6;
  return low <= pixel + 1 + error && (pixel == 0 ? high >= -error : high > pixel + error);
}

inline std::vector<int> pixelsThatAreLit(double from, double to, unsigned int size)
{
  const auto [low, high] = std::minmax(from, to);
  std::vector<int> pixels;
  const int end = int(std::min(high + 2.0, double(size)));
  for (int pixel = int(std::max(low - 2.0, 0.0)); pixel < end; ++pixel)
  {
    if (lights(low, high, pixel))
    {
      pixels.push_back(pixel);
    }
  }
  return pixels;
}

/// With one sample for a pixel, then with several, on the renderer that the environment chooses.
class PixelTest : public GlWindowTest, public testing::WithParamInterface<bool>
{
protected:
  void SetUp() override
  {
    openWindow(800, 620, GetParam());
    glewInit();
    glEnable(GL_DEPTH_TEST);
  }

  QImage draw(const orvex::render::gl::RenderGraph& graph, orvex::render::gl::State& state)
  {
    const orvex::render::Viewport& area = state.viewport();
    glViewport(int(area.x), int(area.y), int(area.width), int(area.height));
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    graph.render(state);
    return picture();
  }
};

/// Adds the elbows of a layout to a graph, and lights their pixels in a picture of their own.
struct Elbows
{
  Elbows(const orvex::Tree& tree, orvex::render::LayoutInfo2D& layout,
         const orvex::render::gl::State& state)
  {
    expected.fill(Qt::black);
    for (int node = 0; node < int(tree.getNumberOfNodes()); ++node)
    {
      const auto& edges = layout.layoutInfoForNode(node).edges;
      graph.addHighLod(LineStrip::make(edges));
      for (const Polyline::Points& points : linesOf(edges))
      {
        const auto a = inArea(points[0], state), b = inArea(points[2], state);
        light(a.x, a.y, a.x, b.y, state.viewport());
        light(a.x, b.y, b.x, b.y, state.viewport());
      }
    }
  }

  void light(double x0, double y0, double x1, double y1, const orvex::render::Viewport& area)
  {
    for (const int x : pixelsThatAreLit(x0, x1, area.width))
    {
      for (const int y : pixelsThatAreLit(y0, y1, area.height))
      {
        expected.setPixelColor(int(area.x) + x, int(area.y) + y, Qt::white);
      }
    }
  }

  orvex::render::gl::RenderGraph graph;
  QImage expected{800, 620, QImage::Format_RGB32};
};
