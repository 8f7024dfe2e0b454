#include "paper/Typeface.h"

#include "gui/qt/Strings.h"
#include "render/gl/font/LabelFont.h"

#include <QFontDatabase>

#include <algorithm>

namespace orvex::paper
{
namespace Detail
{
namespace
{

constexpr int em = 1000;

} // namespace
} // namespace Detail

Typeface::Typeface()
{
  const render::gl::FontFile file = render::gl::labelFontFile();
  const QStringList families = QFontDatabase::applicationFontFamilies(
      QFontDatabase::addApplicationFont(Tools::Qt::fileName(file.path)));
  if (!families.isEmpty())
  {
    _family = families.at(std::min(static_cast<int>(file.index), families.size() - 1));
    _raw = QRawFont::fromFont(font(Detail::em));
  }
}

QFont Typeface::font(int pixels) const
{
  QFont font(_family);
  font.setPixelSize(pixels);
  font.setHintingPreference(QFont::PreferNoHinting);
  // No other font for what this one lacks.
  font.setStyleStrategy(QFont::StyleStrategy(QFont::NoFontMerging | QFont::PreferOutline));
  return font;
}

double Typeface::width(const std::string& text)
{
  double sum = 0.0;
  for (const unsigned int code : Tools::Qt::text(text).toUcs4())
  {
    sum += _character(code).width;
  }
  return sum;
}

bool Typeface::has(const std::string& text)
{
  const QVector<unsigned int> codes = Tools::Qt::text(text).toUcs4();
  return std::all_of(codes.begin(), codes.end(),
                     [this](unsigned int code) { return _character(code).exists; });
}

const Typeface::Character& Typeface::_character(unsigned int code)
{
  const auto [known, isNew] = _characters.try_emplace(code, Character{0.0, false});
  if (isNew && exists())
  {
    const QVector<quint32> glyphs = _raw.glyphIndexesForString(QString::fromUcs4(&code, 1));
    for (const QPointF& advance : _raw.advancesForGlyphIndexes(glyphs))
    {
      known->second.width += advance.x() / Detail::em;
    }
    known->second.exists = _raw.supportsCharacter(code);
  }
  return known->second;
}

} // namespace orvex::paper
