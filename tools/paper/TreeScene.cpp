#include "paper/TreeScene.h"

#include "render/gl/scene/RenderTaxonLabels.h"
#include "render/layout/LayoutCladogram.h"
#include "tree/model/Tree.h"

namespace orvex::paper
{

TreeScene::TreeScene(const boost::shared_ptr<Tree>& tree) : _tree(tree), _builder(tree)
{
  const boost::intrusive_ptr<render::TreeLayout2D> layout(new render::LayoutCladogram);
  _builder.buildScene(layout->layout(tree));
}

render::gl::RenderTaxonLabels& TreeScene::labels() const
{
  return dynamic_cast<render::gl::RenderTaxonLabels&>(*root().children().at(0));
}

unsigned int TreeScene::numberOfLabels() const
{
  return static_cast<unsigned int>(labels().texts().size());
}

} // namespace orvex::paper
