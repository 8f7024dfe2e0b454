#pragma once

#include <string>

namespace Kelmar::System
{

/// The variables of the process's environment.
class Environment
{
public:
  Environment() = delete;

  /// Empty for a variable that is not set, and for an empty name.
  static std::string get(const std::string& name);
  /// A variable set to empty text counts as absent.
  static bool has(const std::string& name) { return !get(name).empty(); }
};

} // namespace Kelmar::System
