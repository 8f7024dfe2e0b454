// Whole frames in a window. The column CPU is the time of the main thread. A software renderer
// fills the pixels in threads of its own, and the column Time includes them.

#include "support/GlWindow.h"

#include "BenchTrees.h"
#include "render/gl/view/ViewCladogram.h"
#include "tree/model/Tree.h"

#include <QApplication>

#include <memory>

namespace
{

using orvex::bench::leavesOf;
using orvex::bench::TreeShape;
using View = orvex::render::gl::ViewCladogram;

constexpr int width = 1200;
constexpr int height = 800;

/// A window with a current context, and the view of the latest tree. They are destroyed in the
/// order view, window, application, since each needs those after it.
class Stage
{
public:
  /// \param percent  how far zoomed in, as a share of what is possible
  View& view(unsigned int leaves, double percent)
  {
    if (_leaves != leaves)
    {
      _view = nullptr;
      _view = new View;
      _view->tree(orvex::bench::tree(TreeShape::Random, leaves));
      _view->update();
      _view->resize(width, height);
      _leaves = leaves;
    }
    _view->camera()->reset();
    _view->camera()->zoomByAmount((_view->camera()->maximumZoom() - 1.0) * percent / 100.0);
    return *_view;
  }

private:
  int _argc = 1;
  char _name[12] = "bench-frame";
  char* _argv[2] = {_name, nullptr};
  QApplication _application{_argc, _argv};
  std::unique_ptr<QGLWidget> _window = makeGlWindow(width, height, true); // as the viewer asks
  boost::intrusive_ptr<View> _view;
  unsigned int _leaves = 0;
};

View& viewOf(unsigned int leaves, double percent)
{
  static Stage stage;
  return stage.view(leaves, percent);
}

void draw(View& view)
{
  view.render();
  glFinish();
}

/// Frames without a change: the labels of the level and the thumbnail have been made before.
void frame(benchmark::State& state)
{
  View& view = viewOf(leavesOf(state), double(state.range(1)));
  view.settings()->alwaysUseHighLod(state.range(2) != 0);
  draw(view);
  for (auto _ : state)
  {
    draw(view);
  }
}
BENCHMARK(frame)
    ->ArgNames({"leaves", "zoom%", "all"})
    ->ArgsProduct({{1'000, 10'000, 100'000, 1'000'000}, {0, 5, 100}, {0}})
    ->ArgsProduct({{10'000, 100'000, 1'000'000}, {0, 5}, {1}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// A frame with the thumbnail's picture in its column, and one with a black column. The second uses
/// a tree with one leaf more, and so another view, since a view keeps a picture once it is made.
void frameOfThumbnail(benchmark::State& state)
{
  View& view = viewOf(leavesOf(state) + static_cast<unsigned int>(state.range(1)), 0.0);
  view.settings()->alwaysUseHighLod(false);
  __GLEW_EXT_framebuffer_object = state.range(1) != 0;
  view.resize(width, height);
  draw(view);
  for (auto _ : state)
  {
    draw(view);
  }
  __GLEW_EXT_framebuffer_object = GL_TRUE;
}
BENCHMARK(frameOfThumbnail)
    ->ArgNames({"leaves", "picture"})
    ->ArgsProduct({{100'000}, {0, 1}})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

/// The first frame after a resize, which draws all lines of the tree for the thumbnail.
void frameAfterResize(benchmark::State& state)
{
  View& view = viewOf(leavesOf(state), 0.0);
  view.settings()->alwaysUseHighLod(false);
  draw(view);
  for (auto _ : state)
  {
    view.resize(width, height);
    draw(view);
  }
}
BENCHMARK(frameAfterResize)
    ->ArgName("leaves")
    ->RangeMultiplier(10)
    ->Range(1'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
