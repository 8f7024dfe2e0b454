#include "render/gl/scene/RenderTaxonLabels.h"

#include "render/gl/draw/State.h"
#include "render/gl/font/FontFile.h"
#include "render/gl/font/FreeType.h"
#include "render/gl/scene/Visitor.h"

#include <algorithm>
#include <utility>

namespace orvex::render::gl
{
namespace Detail
{

boost::intrusive_ptr<Font> loadFont()
{
  FreeType* library = FreeType::instance();
  const boost::intrusive_ptr<Font> font(library->createFont("/Library/Fonts/Arial.ttf"));
  return font ? font : library->createFont(systemFontFile("Arial"));
}

// Labels lie in leaf order, y falling, so that one can only run into the last one kept.
RenderTaxonLabels::Kept thin(const RenderTaxonLabels::Texts& texts,
                             const Kelmar::Math::Matrix44d& localToScreen)
{
  RenderTaxonLabels::Kept kept(texts.size());
  Box2D last;
  for (std::size_t i = 0; i < texts.size(); ++i)
  {
    const Box2D box = texts[i]->getBoundingBoxScreenSpace(localToScreen);
    if (i == 0 || !box.intersects(last))
    {
      kept.set(i);
      last = box;
    }
  }
  return kept;
}

} // namespace Detail

RenderTaxonLabels::RenderTaxonLabels() : _font(Detail::loadFont()) {}

void RenderTaxonLabels::accept(Visitor& visitor)
{
  visitor.visit(*this);
}

void RenderTaxonLabels::addText(const Point2D<double>& position, const std::string& text)
{
  const boost::intrusive_ptr<Text> label(new Text(position, text, _font));
  _texts.push_back(label);
  _boundingBox.add(label->boundingBox());
}

void RenderTaxonLabels::reserve(std::size_t count)
{
  _texts.reserve(count);
}

const RenderTaxonLabels::Kept& RenderTaxonLabels::getOrCreateTextForLevel(unsigned int level,
                                                                          const State& state)
{
  const auto known = _textForLevel.find(level);
  if (known != _textForLevel.end())
  {
    return known->second;
  }
  Kept kept = Detail::thin(_texts, state.getLocalToScreenMatrix());
  return _textForLevel.emplace(level, std::move(kept)).first->second;
}

void RenderTaxonLabels::findTextForLevel(unsigned int level, const State& state, double minimumY,
                                         double maximumY, std::vector<Text*>& found)
{
  Box2D rows;
  rows.minimum.y = minimumY;
  rows.maximum.y = maximumY;
  const Kept& kept = getOrCreateTextForLevel(level, state);
  const Kelmar::Math::Matrix44d localToScreen = state.getLocalToScreenMatrix();
  // No label reaches further from its anchor than the common box; a pixel covers the rounding.
  const std::size_t end = _firstBelow(minimumY - _boundingBox.maximum.y - 1.0, localToScreen);
  std::size_t i = _firstBelow(maximumY - _boundingBox.minimum.y + 1.0, localToScreen);
  i = i == 0 ? kept.find_first() : kept.find_next(i - 1);
  for (; i < end; i = kept.find_next(i))
  {
    if (_texts[i]->getBoundingBoxScreenSpace(localToScreen).overlapsInY(rows))
    {
      found.push_back(_texts[i].get());
    }
  }
}

// The first label whose anchor lies below a row of the window.
std::size_t RenderTaxonLabels::_firstBelow(double screenY,
                                           const Kelmar::Math::Matrix44d& localToScreen) const
{
  const auto isNotBelow = [&](const boost::intrusive_ptr<Text>& text)
  { return text->anchorScreenSpace(localToScreen)[1] >= screenY; };
  const auto first = std::partition_point(_texts.begin(), _texts.end(), isNotBelow);
  return static_cast<std::size_t>(first - _texts.begin());
}

} // namespace orvex::render::gl
