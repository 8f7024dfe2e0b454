#pragma once

#include "foundation/progress/Work.h"

#include <boost/core/noncopyable.hpp>

#include <curl/curl.h>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Kelmar::Network
{

/// Owns one libcurl easy handle, for one transfer of one URL into a stream. Redirections are
/// followed, thirty at most, to http and https only. The status of the answer is ignored.
class Curl : private boost::noncopyable
{
public:
  /// The largest body that is accepted, in bytes: a body is kept in memory.
  static constexpr std::uint64_t maximumBody = std::uint64_t(2) << 30;

  /// \param output               not owned, must outlive this object
  /// \param timeoutMilliseconds  for the whole transfer; 0 for none
  /// \param bodyLimit            a longer body is an error, in bytes
  /// \throws std::runtime_error  if there is no handle, no stream, or an option is refused
  Curl(const std::string& url, std::ostream* output, unsigned int timeoutMilliseconds,
       std::uint64_t bodyLimit = maximumBody);
  ~Curl();

  /// From now on the bytes received are reported as work of a stage, as a share of the length that
  /// the server tells, or of the longest body where it tells none.
  /// \param stage  must outlive the transfer; null to report nothing
  void reportAs(const Progress::Stage* stage) { _stage = stage; }

  /// \param heard  called before the first byte of a body whose length the server tells; may be
  ///               empty
  void tellLength(std::function<void(std::size_t)> heard) { _lengthTold = std::move(heard); }

  /// Blocks until the transfer has ended.
  /// \throws std::runtime_error  if it failed, and whatever the stream or who hears the length
  /// threw
  void download();

private:
  void _configure(unsigned int timeoutMilliseconds);
  void _check(CURLcode code) const;
  void _begin();
  [[noreturn]] void _fail(const std::string& reason) const;
  [[noreturn]] void _failTooLong() const;
  unsigned long _writeData(void* buffer, unsigned long size, unsigned long count);
  int _progress(double downloadTotal, double downloaded, double uploadTotal, double uploaded);

  static unsigned long _writeDataCB(void* buffer, unsigned long size, unsigned long count,
                                    void* user);
  static int _progressCB(void* user, curl_off_t downloadTotal, curl_off_t downloaded,
                         curl_off_t uploadTotal, curl_off_t uploaded);

  std::string _url;
  std::ostream* _output;
  std::vector<char> _error;
  CURL* _curl = nullptr;
  std::uint64_t _bodyLimit;
  std::uint64_t _received = 0;
  std::function<void(std::size_t)> _lengthTold;
  const Progress::Stage* _stage = nullptr;
  std::optional<Progress::Work> _work; // from the first byte on
  // What a callback threw. libcurl calls it from C code, which no exception may pass.
  std::exception_ptr _failure;
};

} // namespace Kelmar::Network
