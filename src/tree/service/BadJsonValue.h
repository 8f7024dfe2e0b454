#pragma once

#include <boost/variant/get.hpp>

#include <string>
#include <utility>

namespace orvex
{

/// A value in an answer of the tree service has another type than expected.
class BadJsonValue : public boost::bad_get
{
public:
  /// \param text  for the user
  explicit BadJsonValue(std::string text) : _text(std::move(text)) {}

  const char* what() const noexcept override { return _text.c_str(); }

private:
  std::string _text;
};

} // namespace orvex
