// Each tree that the reader makes from any bytes can be laid out, built into a scene and culled in
// any view, and afterwards no counted object is left.
#include "Require.h"
#include "foundation/counted/InstanceManager.h"
#include "render/camera/CameraCladogram.h"
#include "render/camera/DisplaySettings.h"
#include "render/camera/DrawingPass.h"
#include "render/gl/draw/State.h"
#include "render/gl/scene/CullPass.h"
#include "render/gl/scene/SceneBuilder.h"
#include "render/layout/LayoutCladogram.h"
#include "tree/model/Tree.h"
#include "tree/model/TreeDepth.h"
#include "tree/newick/NewickReader.h"

#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <stdexcept>

namespace
{

using namespace orvex::render;
using namespace orvex::render::gl;

void cullEverywhere(Group& scene, unsigned int leaves, unsigned int textLength)
{
  const boost::intrusive_ptr<DisplaySettings> settings(new DisplaySettings);
  for (const Viewport& area : {Viewport{80, 0, 720, 600}, Viewport{0, 0, 1, 1}})
  {
    const boost::intrusive_ptr<CameraCladogram> camera(new CameraCladogram);
    camera->horizontalPixelsForText(textLength + gapBesideText);
    camera->updateZoomInformation(leaves, mostPixelsPerLeaf, area);
    for (const double zoom : {0.0, 1.5, 1e9})
    {
      camera->zoomByAmount(zoom);
      camera->pan(0.0, 0.1);
      const boost::intrusive_ptr<State> state(new State(mainPass(*camera, area)));
      cullPass(&scene, *state, *camera, *settings);
    }
  }
}

void show(const std::string& text)
{
  const boost::shared_ptr<orvex::Tree> tree = orvex::NewickReader().parseContents(text);
  if (!tree)
  {
    return;
  }
  orvex::requireRoomForDepth(orvex::depthOfTree(*tree));
  const boost::intrusive_ptr<LayoutCladogram> layout(new LayoutCladogram);
  SceneBuilder builder(tree);
  builder.buildScene(layout->layout(tree));
  cullEverywhere(*builder.root(), tree->getNumberOfLeafNodes(), builder.maximumTextLength());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
  try
  {
    show(std::string(reinterpret_cast<const char*>(data), size));
  }
  catch (const std::runtime_error&)
  {
  }
  catch (const boost::bad_lexical_cast&)
  {
  }
  require(Helper::instanceManager.numberOfObjects() == 0, "no counted object is left");
  return 0;
}
