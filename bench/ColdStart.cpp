// Opens and draws a file once, in a new process, so that no memory and no cache is in use before.
// cold-start.py runs it many times. Prints one JSON object. Times are CPU milliseconds of the main
// thread; in the sweep, OpenGL is told to discard the frames before it fills pixels.
//
//   cold-start stages FILE [MOST]   each step by itself, then a sweep over all zoom levels, or over
//                                   so many of them at even distances, then closing
//   cold-start whole FILE    from the file to the first frame as the viewer does it, with thumbnail
//   cold-start shares FILE   which share of the same each stage of Kelmar::Progress takes, how long
//                            nothing is reported at most, and how far the bar is off at most
//   cold-start floor FILE MIB   what no program can do without: reads the file, counts its
//                               structural characters, writes to that much memory

#include "support/GlWindow.h"

#include "foundation/progress/Listening.h"
#include "foundation/system/LargePages.h"
#include "render/camera/CameraCladogram.h"
#include "render/camera/DrawingPass.h"
#include "render/gl/draw/ApplyPass.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/CullPass.h"
#include "render/gl/scene/RenderTaxonLabels.h"
#include "render/gl/scene/SceneBuilder.h"
#include "render/gl/view/ViewCladogram.h"
#include "render/layout/LayoutCladogram.h"
#include "tree/Document.h"
#include "tree/model/Tree.h"
#include "tree/newick/NewickReader.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

#include <QApplication>

#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <vector>

namespace
{

using namespace orvex::render;
using namespace orvex::render::gl;

constexpr unsigned int width = 800; // the size of the window at its first start
constexpr unsigned int height = 600;
constexpr Viewport mainArea{width / 10, 0, width - width / 10, height};

double cpuMilliseconds()
{
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return double(now.tv_sec) * 1e3 + double(now.tv_nsec) * 1e-6;
}

double peakMebibytes()
{
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return double(usage.ru_maxrss) / 1024.0;
}

/// Stores the time since the last lap under a name.
class Laps
{
public:
  void lap(const char* name)
  {
    const double now = cpuMilliseconds();
    result[name] = now - _last;
    _last = cpuMilliseconds();
  }

  nlohmann::json result;

private:
  double _last = cpuMilliseconds();
};

std::unique_ptr<QGLWidget> makeWindow()
{
  auto window = makeGlWindow(width, height, true);
  glewInit();
  return window;
}

/// Culls and submits one frame of the main area, and returns its time.
double frame(Group& root, CameraCladogram& camera, DisplaySettings& settings)
{
  const double start = cpuMilliseconds();
  const DrawingPass pass = mainPass(camera, mainArea);
  applyPass(pass);
  const boost::intrusive_ptr<State> state(new State(pass));
  const RenderGraph graph = cullPass(&root, *state, camera, settings);
  graph.render(*state);
  return cpuMilliseconds() - start;
}

void zoomTo(CameraCladogram& camera, unsigned int level)
{
  camera.reset();
  camera.zoomByAmount(camera.maximumZoom() * (level + 0.5) / camera.numberOfZoomLevels() - 1.0);
}

/// Measures the slowest frame of all zoom levels, or of \p most of them, at four places of the
/// tree, and the frames that are the first of their level: their median, and the slowest.
void sweep(Group& root, CameraCladogram& camera, unsigned int most, nlohmann::json& result)
{
  const boost::intrusive_ptr<DisplaySettings> settings(new DisplaySettings);
  const unsigned int levels = camera.numberOfZoomLevels();
  const auto places = {0.0, 0.45, -0.2, -0.65};
  glEnable(GL_RASTERIZER_DISCARD);
  // In the first frames the driver compiles its shaders and receives the glyphs' textures.
  for (unsigned int i = 0; i <= 20; ++i)
  {
    zoomTo(camera, levels * i / 20);
    for (const double pan : places)
    {
      camera.pan(0.0, pan);
      frame(root, camera, *settings);
    }
  }
  double worst = 0.0;
  std::vector<double> first;
  const unsigned int count = std::min(levels, most);
  for (unsigned int i = 0; i <= count && most > 0; ++i)
  {
    zoomTo(camera, static_cast<unsigned int>(std::uint64_t(levels) * i / count));
    first.push_back(frame(root, camera, *settings));
    for (const double pan : places)
    {
      camera.pan(0.0, pan);
      worst = std::max(worst, frame(root, camera, *settings));
    }
  }
  glDisable(GL_RASTERIZER_DISCARD);
  first.resize(std::max(first.size(), std::size_t(1)));
  std::sort(first.begin(), first.end());
  result["worst frame of a sweep"] = worst;
  result["first frame of a level"] = first[first.size() / 2];
  result["first frame of a level, at worst"] = first.back();
  result["zoom levels"] = levels;
}

nlohmann::json stages(const std::string& file, unsigned int mostLevels)
{
  const auto window = makeWindow();
  auto pages = std::make_unique<Kelmar::System::LargePages>();
  Laps laps;
  boost::shared_ptr<orvex::Tree> tree = orvex::NewickReader()(file);
  laps.lap("read");
  const boost::intrusive_ptr<LayoutCladogram> layout(new LayoutCladogram);
  boost::intrusive_ptr<LayoutInfo2D> info = layout->layout(tree);
  laps.lap("layout");
  const double before = peakMebibytes();
  auto builder = std::make_unique<SceneBuilder>(tree);
  builder->buildScene(std::move(info));
  pages = nullptr;
  laps.lap("scene");
  laps.result["scene MiB"] = peakMebibytes() - before;
  const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
  camera->horizontalPixelsForText(builder->maximumTextLength() + gapBesideText);
  camera->updateZoomInformation(tree->getNumberOfLeafNodes(), mostPixelsPerLeaf, mainArea);
  boost::intrusive_ptr<Group> root = builder->root();
  builder = nullptr;
  laps.result["peak MiB before the sweep"] = peakMebibytes();
  sweep(*root, *camera, mostLevels, laps.result);
  laps.lap("sweep");
  root = nullptr;
  tree = nullptr;
  laps.lap("close");
  return laps.result;
}

/// Keeps when each report came, in milliseconds since the first one.
struct ReportTimes : Kelmar::Progress::Listener
{
  struct Report
  {
    Kelmar::Progress::Stage stage;
    double share, time;
  };

  void progress(const Kelmar::Progress::Stage& stage, double share) noexcept override
  {
    start = reports.empty() ? cpuMilliseconds() : start;
    reports.push_back({stage, share, cpuMilliseconds() - start});
  }

  double start = 0.0;
  std::vector<Report> reports;
};

nlohmann::json whole(const std::string& file)
{
  const auto window = makeWindow();
  Laps laps;
  const boost::intrusive_ptr<ViewCladogram> view(new ViewCladogram);
  boost::intrusive_ptr<orvex::Document> document(new orvex::Document);
  document->read(file);
  view->tree(document->getTree());
  document = nullptr;
  view->update();
  view->resize(width, height);
  laps.lap("file to scene");
  view->render();
  glFinish();
  laps.lap("first frame");
  laps.result["file to first frame"] =
      laps.result["file to scene"].get<double>() + laps.result["first frame"].get<double>();
  laps.result["peak MiB"] = peakMebibytes();
  return laps.result;
}

nlohmann::json shares(const std::string& file)
{
  ReportTimes heard;
  const Kelmar::Progress::Listening listening(heard);
  whole(file);
  const double all = heard.reports.back().time;
  nlohmann::json result = nlohmann::json::object();
  double last = 0.0;
  double silence = 0.0;
  double error = 0.0;
  for (const auto& [stage, share, time] : heard.reports)
  {
    const char* const name = stage.text;
    result[name] = result.value(name, 0.0) + (time - last) / all;
    silence = std::max(silence, (time - last) / all);
    error = std::max(error, std::abs(stage.shareOfWhole(share) - time / all));
    last = time;
  }
  result["longest silence"] = silence;
  result["largest error"] = error;
  return result;
}

nlohmann::json floor(const std::string& file, std::size_t mebibytes)
{
  Laps laps;
  std::ifstream in(file, std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const auto structural = std::count_if(text.begin(), text.end(),
                                        [](char c) { return c == '(' || c == ')' || c == ','; });
  const std::size_t size = mebibytes << 20;
  const std::unique_ptr<char[]> memory(new char[size]);
  for (std::size_t i = 0; i < size; i += 64)
  {
    memory[i] = static_cast<char>(structural);
  }
  benchmark::DoNotOptimize(memory.get());
  laps.lap("floor");
  return laps.result;
}

} // namespace

int main(int argc, char** argv)
{
  Kelmar::System::LargePages::prefer(); // as the viewer does
  const QApplication application(argc, argv);
  const std::string mode = argc > 2 ? argv[1] : "";
  if (mode == "stages")
  {
    std::cout << stages(argv[2], argc > 3 ? static_cast<unsigned int>(std::stoul(argv[3])) : 3000)
              << "\n";
  }
  else if (mode == "whole")
  {
    std::cout << whole(argv[2]) << "\n";
  }
  else if (mode == "shares")
  {
    std::cout << shares(argv[2]) << "\n";
  }
  else if (mode == "floor" && argc > 3)
  {
    std::cout << floor(argv[2], std::stoul(argv[3])) << "\n";
  }
  else
  {
    std::cerr << "usage: cold-start stages|whole|shares|floor FILE [MOST LEVELS|MIB]\n";
    return 1;
  }
  return 0;
}
