#pragma once

#include "render/Point2D.h"
#include "render/gl/draw/Text.h"
#include "render/gl/font/Font.h"
#include "render/gl/scene/Node.h"

#include <boost/dynamic_bitset.hpp>
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
  /// Which labels are kept: a bit for each, in the order of texts(). A large tree has thousands of
  /// levels, and lists of its labels for all of them would outgrow the scene many times.
  using Kept = boost::dynamic_bitset<>;

  /// Loads the font. Without one all labels are empty.
  RenderTaxonLabels();

  void accept(Visitor& visitor) override;

  /// \param position  the label's anchor in world units. Labels come in leaf order: y must fall.
  void addText(const Point2D<double>& position, const std::string& text);
  void reserve(std::size_t count);
  const Texts& texts() const { return _texts; }

  /// The labels to show at a zoom level, owned by this node. Decided when the level is first met,
  /// with the matrices of that moment, and kept.
  const Kept& getOrCreateTextForLevel(unsigned int level, const State& state);

  /// Appends the labels kept for a level whose box overlaps a range of window rows, or touches it,
  /// in their order. Costs what it finds, not what there is.
  void findTextForLevel(unsigned int level, const State& state, double minimumY, double maximumY,
                        std::vector<Text*>& found);

private:
  std::size_t _firstBelow(double screenY, const Kelmar::Math::Matrix44d& localToScreen) const;

  boost::intrusive_ptr<Font> _font;
  Texts _texts;
  std::map<unsigned int, Kept> _textForLevel;
};

} // namespace orvex::render::gl
