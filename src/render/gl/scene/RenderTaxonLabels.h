#pragma once

#include "render/gl/font/Font.h"
#include "render/gl/scene/Node.h"
#include "render/gl/scene/labels/LabelColumn.h"
#include "render/layout/Point2D.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <cstddef>
#include <deque>
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
  using Texts = LabelColumn::Texts;
  /// Which labels are kept: a bit for each, in the order of texts(). A large tree has thousands of
  /// levels, and lists of labels for all of them would be many times larger than the scene.
  using Kept = LabelColumn::Kept;

  /// Loads the font. Without one all labels are empty.
  /// \param mostBytes  of bits that are held for levels
  /// \throws std::runtime_error  if the font library can't start
  explicit RenderTaxonLabels(std::size_t mostBytes = std::size_t(64) << 20);

  void accept(Visitor& visitor) override;

  /// \param position  the label's anchor in world units. Labels come in leaf order: y must fall,
  ///                  else they are not found again. Builds with assertions check it.
  void addText(const Point2D<double>& position, const std::string& text);
  void reserve(std::size_t count) { _column.reserve(count); }
  const Texts& texts() const { return _column.texts(); }

  /// The labels to show at a zoom level, owned by this node until it is asked for another level.
  /// Decided when the level is first shown, with the matrices of that moment, and never changed.
  const Kept& getOrCreateTextForLevel(unsigned int level, const State& state);

  /// Appends the labels kept for a level, or all where the state does not thin, whose box overlaps
  /// a range of window rows, or touches it, in their order. The time depends on the number of
  /// labels found, not on that of all labels.
  void findTextForLevel(unsigned int level, const State& state, double minimumY, double maximumY,
                        std::vector<Text*>& found);

  /// For how many levels bits are held at present. The bits of other levels are computed again when
  /// they are needed, with the same result.
  std::size_t levelsHeld() const { return _held.size(); }

private:
  struct Level
  {
    Kelmar::Math::Matrix44d localToScreen; // of when it was first shown
    Kept kept;                             // empty if not held
  };

  void _hold(unsigned int level, Level& found);

  boost::intrusive_ptr<Font> _font;
  LabelColumn _column;
  std::size_t _mostBytes;
  std::map<unsigned int, Level> _levels;
  std::deque<unsigned int> _held; // the oldest first
};

} // namespace orvex::render::gl
