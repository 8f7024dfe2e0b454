#pragma once

#include <boost/lexical_cast/bad_lexical_cast.hpp>

#include <string>

namespace orvex
{

struct TextPlace;

/// Thrown if a branch length of a Newick text is no number. Says which text was found, where, and
/// why that may be.
class BadBranchLength : public boost::bad_lexical_cast
{
public:
  /// \param item    name, ":" and length, as in the text
  /// \param place   where the length begins; of an empty one, where its ":" is
  /// \param reason  a sentence about the whole text, which replaces what is found in the item;
  ///                empty for none
  BadBranchLength(const std::string& item, const TextPlace& place, const std::string& reason);

  const char* what() const noexcept override { return _text.c_str(); }

private:
  std::string _text;
};

} // namespace orvex
