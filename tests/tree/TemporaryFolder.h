#pragma once

#include <boost/core/noncopyable.hpp>
#include <boost/filesystem.hpp>

#include <fstream>
#include <string>

namespace orvex::test
{

/// A new folder, removed with all that is in it at the end of the scope.
class TemporaryFolder : private boost::noncopyable
{
public:
  TemporaryFolder()
      : _path(boost::filesystem::temp_directory_path() /
              boost::filesystem::unique_path("orvex-%%%%-%%%%-%%%%"))
  {
    boost::filesystem::create_directories(_path);
  }

  ~TemporaryFolder()
  {
    boost::system::error_code ignored;
    boost::filesystem::remove_all(_path, ignored);
  }

  std::string path(const std::string& name) const { return (_path / name).string(); }

  /// \return the path of the new file
  std::string write(const std::string& name, const std::string& contents) const
  {
    boost::filesystem::create_directories((_path / name).parent_path());
    std::ofstream(path(name), std::ios_base::binary) << contents;
    return path(name);
  }

private:
  boost::filesystem::path _path;
};

} // namespace orvex::test
