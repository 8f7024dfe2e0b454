#include "render/gl/RenderTaxonLabels.h"

#include "render/gl/FontFile.h"
#include "render/gl/FreeType.h"
#include "render/gl/State.h"
#include "render/gl/Visitor.h"

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
void thin(const RenderTaxonLabels::Texts& all, const Kelmar::Math::Matrix44d& localToScreen,
          RenderTaxonLabels::Texts& kept)
{
  Box2D last;
  for (const boost::intrusive_ptr<Text>& text : all)
  {
    const Box2D box = text->getBoundingBoxScreenSpace(localToScreen);
    if (kept.empty() || !box.intersects(last))
    {
      kept.push_back(text);
      last = box;
    }
  }
}

} // namespace Detail

RenderTaxonLabels::RenderTaxonLabels() : _font(Detail::loadFont()) {}

void RenderTaxonLabels::accept(Visitor& visitor)
{
  visitor.visit(*this);
}

void RenderTaxonLabels::addText(const Point2D<double>& position, const std::string& text)
{
  _texts.emplace_back(new Text(position, text, _font));
  _boundingBox.add(_texts.back()->boundingBox());
}

void RenderTaxonLabels::reserve(std::size_t count)
{
  _texts.reserve(count);
}

RenderTaxonLabels::Texts& RenderTaxonLabels::getOrCreateTextForLevel(unsigned int level,
                                                                     const State& state)
{
  const auto known = _textForLevel.find(level);
  if (known != _textForLevel.end())
  {
    return known->second;
  }
  Texts kept;
  Detail::thin(_texts, state.getLocalToScreenMatrix(), kept);
  return _textForLevel.emplace(level, std::move(kept)).first->second;
}

} // namespace orvex::render::gl
