#pragma once

#include <boost/core/noncopyable.hpp>

#include <fstream>
#include <string>

namespace Brevan
{

/// Redirects std::cout and std::cerr to one log file during its lifetime. If the file can't be
/// opened, the streams are not changed.
class StreamRedirect : private boost::noncopyable
{
public:
  /// \param path  the log file, which is emptied first; with an empty path nothing is redirected
  explicit StreamRedirect(const std::string& path);
  ~StreamRedirect();

private:
  std::string _path;
  std::ofstream _file;
  std::streambuf* _cout;
  std::streambuf* _cerr;
};

} // namespace Brevan
