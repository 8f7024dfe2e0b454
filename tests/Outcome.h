#pragma once

#include <exception>
#include <iostream>
#include <sstream>
#include <string>

namespace orvex::test
{

/// The text of the exception that an action throws; empty if it throws none.
template <class Action>
std::string errorOf(Action action)
{
  try
  {
    action();
  }
  catch (const std::exception& e)
  {
    return e.what();
  }
  return "";
}

/// What an action writes to std::cout. It must not throw.
template <class Action>
std::string printed(Action action)
{
  std::ostringstream out;
  std::streambuf* const before = std::cout.rdbuf(out.rdbuf());
  action();
  std::cout.rdbuf(before);
  return out.str();
}

} // namespace orvex::test
