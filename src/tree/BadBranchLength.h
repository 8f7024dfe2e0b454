#pragma once

#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <cstddef>
#include <string>

namespace orvex
{

/// A branch length of a Newick text is no number. Says what stands there instead, and where.
class BadBranchLength : public boost::bad_lexical_cast
{
public:
  /// \param item  name, ":" and length, as they stand in the text
  explicit BadBranchLength(const std::string& item);

  /// What stands in place of the number.
  const std::string& length() const { return _length; }

  /// Where the length begins, in bytes from the start of the text.
  std::size_t offset() const { return _offset; }
  /// The same for the user. Lines, and the bytes of a line, are counted from 1.
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
