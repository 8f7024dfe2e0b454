#pragma once

#include "render/Point2D.h"
#include "render/gl/Font.h"
#include "render/gl/Node.h"
#include "render/gl/Text.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace orvex::render::gl
{

class State;

/// All labels of a tree, and which of them can be shown at a zoom level without running into each
/// other. Its box is the union of the labels' extents, in label pixels.
class RenderTaxonLabels : public Node
{
public:
  using Texts = std::vector<boost::intrusive_ptr<Text>>;

  /// Loads the font. Without one all labels are empty.
  RenderTaxonLabels();

  void accept(Visitor& visitor) override;

  /// Labels come in leaf order, from the top down.
  /// \param position  the label's anchor in world units
  void addText(const Point2D<double>& position, const std::string& text);
  void reserve(std::size_t count);
  const Texts& texts() const { return _texts; }

  /// The labels to show at a zoom level, owned by this node. Decided when the level is first met,
  /// with the matrices of that moment, and kept.
  Texts& getOrCreateTextForLevel(unsigned int level, const State& state);

private:
  boost::intrusive_ptr<Font> _font;
  Texts _texts;
  std::map<unsigned int, Texts> _textForLevel;
};

} // namespace orvex::render::gl
