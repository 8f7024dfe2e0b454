#pragma once

#include <string>

namespace Kelmar::User
{

/// Where the user's things lie. Paths only, without a slash at their end: no directory is made or
/// looked at.
class Directory
{
public:
  Directory() = delete;

  /// What a file dialog shows first: the home directory.
  /// \throws std::runtime_error  if HOME is unset or empty
  static std::string documents();
  /// What the programs' own directories lie under: the home directory.
  /// \throws std::runtime_error  if HOME is unset or empty
  static std::string appData();
  /// A vendor's hidden directory.
  /// \throws std::runtime_error  for an empty name, and as appData()
  static std::string vendor(const std::string& vendor);
  /// A program's directory in its vendor's.
  /// \throws std::runtime_error  for an empty name, and as vendor()
  static std::string program(const std::string& vendor, const std::string& program);
};

} // namespace Kelmar::User
