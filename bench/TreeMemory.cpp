// Opens and draws a file once, in a new process, and compares what the program expects that to take
// of the memory, at each of the three times when it asks, with what is taken from then to the first
// frame. tree-memory.py runs it for many trees. Prints one JSON object, in MiB.

#include "support/GlWindow.h"

#include "foundation/system/AllocatorMemory.h"
#include "foundation/system/LargePages.h"
#include "foundation/system/NumberFile.h"
#include "foundation/system/StackLimit.h"
#include "render/gl/view/ViewCladogram.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeMemory.h"
#include "tree/model/TreeSize.h"
#include "tree/newick/NewickFile.h"
#include "tree/newick/NewickReader.h"
#include "tree/newick/NodeCount.h"

#include <nlohmann/json.hpp>

#include <QApplication>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace
{

/// The estimates of a tree's memory beside what the process then takes.
class Askings
{
public:
  /// \param estimate  of what is taken from now on, in bytes
  void ask(const char* name, std::size_t estimate)
  {
    _notePeak();
    Kelmar::System::giveBackMemory(); // as it is where the program asks
    _askings.push_back({name, double(estimate) / (1 << 20), _own("VmRSS:"), 0.0});
    std::ofstream("/proc/self/clear_refs") << 5; // VmHWM begins anew
  }

  nlohmann::json result()
  {
    _notePeak();
    nlohmann::json result;
    for (const Asking& asking : _askings)
    {
      result[asking.name] = {{"estimate", asking.estimate}, {"taken", asking.peak - asking.before}};
    }
    return result;
  }

private:
  struct Asking
  {
    const char* name;
    double estimate, before, peak; // MiB
  };

  // Without the pages of programs and libraries, which the system reads again if it lets them go.
  static double _own(const char* total)
  {
    const auto kibibytes = [](const char* name)
    { return double(Kelmar::System::numberAfter("/proc/self/status", name).value()); };
    return (kibibytes(total) - kibibytes("RssFile:")) / 1024.0;
  }

  void _notePeak()
  {
    const double peak = _own("VmHWM:");
    for (Asking& asking : _askings)
    {
      asking.peak = std::max(asking.peak, peak);
    }
  }

  std::vector<Asking> _askings;
};

/// The steps of Document::read, with what comes before the first frame. The window is made late, as
/// that of the viewer, so that the driver's memory is counted as it is at the first opening.
nlohmann::json open(const std::string& file)
{
  constexpr int width = 800; // the size of the window at its first start
  constexpr int height = 600;
  Askings askings;
  auto pages = std::make_unique<Kelmar::System::LargePages>();
  askings.ask("file", std::filesystem::file_size(file));
  std::string text = orvex::NewickFile(file).read();
  askings.ask("nodes",
              orvex::memoryToReadAndShow(orvex::sizeOfNewick(text), text.size(), text.size()));
  const boost::shared_ptr<orvex::Tree> tree = orvex::NewickReader().parseContents(text);
  std::string().swap(text); // an assignment would keep its memory
  pages = nullptr;
  askings.ask("tree", orvex::memoryToShow(orvex::sizeToShow(*tree)));
  const auto window = makeGlWindow(width, height, true);
  const boost::intrusive_ptr<orvex::render::gl::ViewCladogram> view(
      new orvex::render::gl::ViewCladogram);
  view->tree(tree);
  view->update();
  view->resize(width, height);
  view->render();
  glFinish();
  return askings.result();
}

} // namespace

int main(int argc, char** argv)
{
  Kelmar::System::LargePages::prefer(); // as the viewer does
  Kelmar::System::raiseStackLimit();
  const QApplication application(argc, argv);
  if (argc != 2)
  {
    std::cerr << "usage: tree-memory FILE\n";
    return 1;
  }
  std::cout << open(argv[1]) << "\n";
  return 0;
}
