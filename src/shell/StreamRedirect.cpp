#include "shell/StreamRedirect.h"

#include <iostream>

namespace Brevan
{
namespace Detail
{
namespace
{

void restore(std::ostream& stream, std::streambuf* buffer) noexcept
{
  if (!buffer)
  {
    return;
  }
  try
  {
    std::ios_base::sync_with_stdio(true);
    stream.rdbuf(buffer);
  }
  catch (...)
  {
  }
}

} // namespace
} // namespace Detail

StreamRedirect::StreamRedirect(const std::string& path)
    : _path(path), _cout(std::cout.rdbuf()), _cerr(std::cerr.rdbuf())
{
  if (!_path.empty())
  {
    _file.open(_path, std::ios::out | std::ios::trunc);
  }
  if (_file.is_open())
  {
    std::cout.rdbuf(_file.rdbuf());
    std::cerr.rdbuf(_file.rdbuf());
    // One call for each redirected stream. The setting is common to all streams, so the second call
    // changes nothing.
    std::ios_base::sync_with_stdio(true);
    std::ios_base::sync_with_stdio(true);
  }
}

StreamRedirect::~StreamRedirect()
{
  Detail::restore(std::cout, _cout);
  Detail::restore(std::cerr, _cerr);
}

} // namespace Brevan
