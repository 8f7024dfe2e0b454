#pragma once

#include <exception>

namespace Kelmar::Progress
{

/// Ends a work that the user no longer wants. It is no failure: nothing reports it.
class Stopped : public std::exception
{
public:
  const char* what() const noexcept override { return "The work was stopped."; }
};

} // namespace Kelmar::Progress
