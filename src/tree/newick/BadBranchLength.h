#pragma once

#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <cstddef>
#include <string>

namespace orvex
{

/// Thrown if a branch length of a Newick text is no number. Says which text was found, and where.
class BadBranchLength : public boost::bad_lexical_cast
{
public:
  /// \param item  name, ":" and length, as in the text
  explicit BadBranchLength(const std::string& item);

  /// The text that is no number.
  const std::string& length() const { return _length; }

  /// Where the length begins, in bytes from the start of the text.
  std::size_t offset() const { return _offset; }
  /// Sets the place, for the user as a line and a byte of that line, both counted from 1.
  void place(std::size_t offset, std::size_t line, std::size_t column);

  const char* what() const noexcept override { return _text.c_str(); }

private:
  std::string _name;
  std::string _length;
  std::size_t _offset = 0;
  bool _isMarkedUp = false;
  std::string _text;
};

} // namespace orvex
