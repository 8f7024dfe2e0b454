#pragma once

#include <boost/core/noncopyable.hpp>

#include <cstddef>
#include <memory>
#include <string>

namespace orvex::convert
{

/// Makes names that the viewer reads and shows of those that other programs write.
///
/// Names are UTF-8 or, where they are not valid as such, Latin-1. The characters that have a
/// meaning in the viewer's files, ( ) , and :, become "_"; line ends and tabs become blanks; blanks
/// at both ends go. Letters beyond ASCII, for which the viewer shows boxes, become the nearest ones
/// of ASCII.
class Names : private boost::noncopyable
{
public:
  /// \param keepsLetters  leaves letters beyond ASCII alone; they are written in UTF-8
  explicit Names(bool keepsLetters);
  ~Names();

  /// \throws std::runtime_error  if the letters can't be converted
  std::string toViewer(std::string name);

  /// How many names changed for another reason than blanks.
  std::size_t changed() const { return _changed; }

private:
  std::string _withoutLetters(const std::string& name);

  struct Letters;

  bool _keepsLetters;
  std::size_t _changed = 0;
  // Made when the first letter beyond ASCII is met.
  std::unique_ptr<Letters> _letters;
};

} // namespace orvex::convert
