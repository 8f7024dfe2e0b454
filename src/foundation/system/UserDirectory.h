#pragma once

#include <string>

namespace Kelmar::User
{

/// The directories for the user's files and settings. The functions only form paths, without a
/// slash at the end: no directory is created, and none needs to exist.
class Directory
{
public:
  Directory() = delete;

  /// The directory that a file dialog shows first: the home directory.
  /// \throws std::runtime_error  if HOME is unset or empty
  static std::string documents();
  /// The directory that contains the programs' own directories: the home directory.
  /// \throws std::runtime_error  if HOME is unset or empty
  static std::string appData();
  /// The hidden directory of a vendor.
  /// \throws std::runtime_error  for an empty name, and as appData()
  static std::string vendor(const std::string& vendor);
  /// The directory of a program, inside that of its vendor.
  /// \throws std::runtime_error  for an empty name, and as vendor()
  static std::string program(const std::string& vendor, const std::string& program);
};

} // namespace Kelmar::User
