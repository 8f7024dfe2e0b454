#pragma once

#include <QFont>
#include <QRawFont>

#include <string>
#include <unordered_map>

namespace orvex::paper
{

/// The font that the viewer draws labels with, for documents. Needs a QGuiApplication.
class Typeface
{
public:
  /// \throws std::runtime_error  if the font library can't start
  Typeface();

  /// False if no font was found: a document has no names then.
  bool exists() const { return _raw.isValid(); }
  QString family() const { return _family; }
  /// \param pixels  to an em
  QFont font(int pixels) const;

  /// The width of a text in UTF-8 without kerning, for an em of 1.0. Kerning hardly makes it wider.
  double width(const std::string& text);
  /// Whether the font has all characters of a text.
  bool has(const std::string& text);

private:
  struct Character
  {
    double width;
    bool exists;
  };

  const Character& _character(unsigned int code);

  QString _family;
  QRawFont _raw;
  std::unordered_map<unsigned int, Character> _characters;
};

} // namespace orvex::paper
