#include "render/gl/scene/RenderTaxonLabels.h"

#include "render/gl/draw/State.h"
#include "render/gl/font/LabelFont.h"
#include "render/gl/scene/Visitor.h"

#include <cassert>
#include <utility>

namespace orvex::render::gl
{
RenderTaxonLabels::RenderTaxonLabels(std::size_t mostBytes)
    : _font(loadLabelFont()), _mostBytes(mostBytes)
{
}

void RenderTaxonLabels::accept(Visitor& visitor)
{
  visitor.visit(*this);
}

void RenderTaxonLabels::addText(const Point2D<double>& position, const std::string& text)
{
  assert(texts().empty() || position.y <= texts().back()->position().y);
  boost::intrusive_ptr<Text> label(new Text(position, text, _font));
  _boundingBox.add(label->boundingBox());
  _column.add(std::move(label));
}

const RenderTaxonLabels::Kept& RenderTaxonLabels::getOrCreateTextForLevel(unsigned int level,
                                                                          const State& state)
{
  const auto [known, isNew] = _levels.try_emplace(level);
  if (isNew)
  {
    known->second.localToScreen = state.getLocalToScreenMatrix();
  }
  if (known->second.kept.empty() && !texts().empty())
  {
    _hold(level, known->second);
  }
  return known->second.kept;
}

void RenderTaxonLabels::_hold(unsigned int level, Level& found)
{
  const std::size_t bytes = texts().size() / 8 + 1;
  while (!_held.empty() && (_held.size() + 1) * bytes > _mostBytes)
  {
    _levels[_held.front()].kept = Kept();
    _held.pop_front();
  }
  found.kept = _column.thin(found.localToScreen);
  _held.push_back(level);
}

void RenderTaxonLabels::findTextForLevel(unsigned int level, const State& state, double minimumY,
                                         double maximumY, std::vector<Text*>& found)
{
  const Kept* const kept = state.thinsLabels() ? &getOrCreateTextForLevel(level, state) : nullptr;
  Box2D rows;
  rows.minimum.y = minimumY;
  rows.maximum.y = maximumY;
  const Kelmar::Math::Matrix44d localToScreen = state.getLocalToScreenMatrix();
  // No label is larger than the common box; one pixel more allows for rounding.
  const std::size_t end =
      _column.firstBelowWindowRow(minimumY - _boundingBox.maximum.y - 1.0, localToScreen);
  std::size_t i =
      _column.firstBelowWindowRow(maximumY - _boundingBox.minimum.y + 1.0, localToScreen);
  if (kept)
  {
    i = i == 0 ? kept->find_first() : kept->find_next(i - 1);
  }
  for (; i < end; i = kept ? kept->find_next(i) : i + 1)
  {
    Text& text = *texts()[i];
    if (text.getBoundingBoxScreenSpace(localToScreen).overlapsInY(rows))
    {
      found.push_back(&text);
    }
  }
}

} // namespace orvex::render::gl
