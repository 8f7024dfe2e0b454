#pragma once

#include "foundation/progress/Stage.h"

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

namespace Kelmar::Network
{

/// Downloads from a URL; may be used several times.
class Http
{
public:
  explicit Http(const std::string& url);

  /// Blocks until the body is in the stream. An error status with a body is no failure.
  /// \param output               must not be null
  /// \param timeoutMilliseconds  for the whole transfer; 0 for none
  /// \param stage                that the download is, for who hears of this thread's work; null to
  ///                             report nothing. Must outlive the call
  /// \param lengthTold           called before the first byte of a body whose length the server
  ///                             tells; may be empty
  /// \throws std::runtime_error  if the transfer fails, and whatever lengthTold or the stream threw
  void download(std::ostream* output, unsigned int timeoutMilliseconds,
                const Progress::Stage* stage = nullptr,
                const std::function<void(std::size_t)>& lengthTold = {});

private:
  std::string _url;
};

} // namespace Kelmar::Network
