#pragma once

#include <boost/core/noncopyable.hpp>

#include <fstream>
#include <string>

namespace Brevan
{

/// Sends std::cout and std::cerr to one log file in its lifetime. Where the file can't be opened,
/// the streams stay as they are.
class StreamRedirect : private boost::noncopyable
{
public:
  /// \param path  truncated; empty redirects nothing
  explicit StreamRedirect(const std::string& path);
  ~StreamRedirect();

private:
  std::string _path;
  std::ofstream _file;
  std::streambuf* _cout;
  std::streambuf* _cerr;
};

} // namespace Brevan
