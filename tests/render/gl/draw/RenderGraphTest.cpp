#include "render/gl/draw/RenderGraph.h"

#include "render/gl/device/OpenGL.h"
#include "render/gl/draw/State.h"
#include "support/RecordedOpenGL.h"

#include <gtest/gtest.h>

using namespace orvex::render::gl;

/// Notes its name among the calls of OpenGL in place of drawing.
struct NamedDrawable : Drawable
{
  explicit NamedDrawable(const char* text) : name(text) {}
  void render(State&) const override { noteCall(name); }

  const char* name;
};

static RenderGraph filledGraph()
{
  RenderGraph graph;
  for (const char* text : {"label 1", "label 2"})
  {
    graph.addText(new NamedDrawable(text));
  }
  for (const char* lines : {"lines 1", "lines 2"})
  {
    graph.addHighLod(new NamedDrawable(lines));
  }
  for (const char* proxy : {"proxy 1", "proxy 2"})
  {
    graph.addLowLod(new NamedDrawable(proxy));
  }
  graph.addText(nullptr);
  graph.addHighLod(nullptr);
  graph.addLowLod(nullptr);
  return graph;
}

TEST(RenderGraph, DrawsProxiesThenLinesThenLabelsEachInItsState)
{
  const RenderGraph graph = filledGraph();
  const boost::intrusive_ptr<State> state(new State);
  state->viewport({10, 20, 100, 200});
  // From the viewport's pixels to clip space, at the depth of the world's plane.
  constexpr double toPixels[16] = {0.02, 0, 0, 0, 0, 0.01, 0, 0, 0, 0, -1, 0, -1.2, -1.2, 0, 1};
  EXPECT_EQ(callsOf([&] { graph.render(*state); }),
            callsOf(
                [&]
                {
                  glDisable(GL_LIGHTING);
                  glEnableClientState(GL_VERTEX_ARRAY);
                  glEnableClientState(GL_COLOR_ARRAY);
                  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
                  glMatrixMode(GL_PROJECTION);
                  glPushMatrix();
                  glLoadMatrixd(toPixels);
                  glMatrixMode(GL_MODELVIEW);
                  glPushMatrix();
                  glLoadIdentity();
                  noteCall("proxy 1");
                  noteCall("proxy 2");
                  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
                  noteCall("lines 1");
                  noteCall("lines 2");
                  glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
                  glPushAttrib(GL_TEXTURE_BIT | GL_ENABLE_BIT | GL_POLYGON_BIT);
                  glEnable(GL_BLEND);
                  glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
                  glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
                  glEnableClientState(GL_TEXTURE_COORD_ARRAY);
                  noteCall("label 1");
                  noteCall("label 2");
                  glDisableClientState(GL_TEXTURE_COORD_ARRAY);
                  glDisable(GL_TEXTURE_2D);
                  glPopAttrib();
                  glMatrixMode(GL_PROJECTION);
                  glPopMatrix();
                  glMatrixMode(GL_MODELVIEW);
                  glPopMatrix();
                  glDisableClientState(GL_VERTEX_ARRAY);
                  glDisableClientState(GL_COLOR_ARRAY);
                }));
}
