#include "foundation/network/Curl.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <ostream>
#include <stdexcept>

namespace Kelmar::Network
{
namespace Detail
{
namespace
{

// Twice libcurl's CURL_ERROR_SIZE.
constexpr std::size_t errorSize = 512;

// More of them are a loop.
constexpr long mostRedirects = 30;

} // namespace
} // namespace Detail

Curl::Curl(const std::string& url, std::ostream* output, unsigned int timeoutMilliseconds,
           std::uint64_t bodyLimit)
    : _url(url), _output(output), _error(Detail::errorSize, '\0'), _bodyLimit(bodyLimit)
{
  // The destructor does not run for a constructor that throws.
  std::unique_ptr<CURL, void (*)(CURL*)> handle(curl_easy_init(), curl_easy_cleanup);
  _curl = handle.get();
  if (!_curl)
  {
    throw std::runtime_error("Error 2234813705: Failed to open curl easy handle");
  }
  if (!_output)
  {
    throw std::runtime_error("Error 2742979881: stream is not valid.");
  }
  _configure(timeoutMilliseconds);
  static_cast<void>(handle.release()); // from here on this object owns it
}

Curl::~Curl()
{
  curl_easy_cleanup(_curl);
  _curl = nullptr;
}

void Curl::_configure(unsigned int timeoutMilliseconds)
{
  _check(curl_easy_setopt(_curl, CURLOPT_ERRORBUFFER, _error.data()));
  _check(curl_easy_setopt(_curl, CURLOPT_URL, _url.c_str()));
  _check(curl_easy_setopt(_curl, CURLOPT_WRITEDATA, this));
  _check(curl_easy_setopt(_curl, CURLOPT_WRITEFUNCTION, &Curl::_writeDataCB));
  _check(curl_easy_setopt(_curl, CURLOPT_XFERINFODATA, this));
  _check(curl_easy_setopt(_curl, CURLOPT_XFERINFOFUNCTION, &Curl::_progressCB));
  _check(curl_easy_setopt(_curl, CURLOPT_NOPROGRESS, 0L));
  _check(curl_easy_setopt(_curl, CURLOPT_NOSIGNAL, 1L));
  _check(curl_easy_setopt(_curl, CURLOPT_FOLLOWLOCATION, 1L));
  _check(curl_easy_setopt(_curl, CURLOPT_MAXREDIRS, Detail::mostRedirects));
  if (timeoutMilliseconds != 0)
  {
    _check(curl_easy_setopt(_curl, CURLOPT_TIMEOUT_MS, static_cast<long>(timeoutMilliseconds)));
  }
  // A redirection must not lead to files of the user's machine or to another protocol.
  _check(curl_easy_setopt(_curl, CURLOPT_REDIR_PROTOCOLS_STR, "http,https"));
}

void Curl::download()
{
  const CURLcode code = curl_easy_perform(_curl);
  if (_failure)
  {
    std::rethrow_exception(_failure);
  }
  _check(code);
}

void Curl::_check(CURLcode code) const
{
  if (code == CURLE_OK)
  {
    return;
  }
  const std::string reason(_error.begin(), std::find(_error.begin(), _error.end(), '\0'));
  _fail(reason.empty() ? "curl error code = " + std::to_string(static_cast<int>(code)) : reason);
}

void Curl::_fail(const std::string& reason) const
{
  throw std::runtime_error("Error 3886626924: " + reason + ", URL = " + _url);
}

void Curl::_failTooLong() const
{
  _fail("The answer is longer than " + std::to_string(_bodyLimit) + " bytes");
}

unsigned long Curl::_writeData(void* buffer, unsigned long size, unsigned long count)
{
  if (!_output)
  {
    return 0;
  }
  const unsigned long total = size * count;
  if (_received == 0)
  {
    _begin();
  }
  if (total > _bodyLimit - _received)
  {
    _failTooLong();
  }
  _received += total;

  constexpr unsigned long most = std::numeric_limits<int>::max();
  const char* bytes = static_cast<const char*>(buffer);
  for (unsigned long written = 0; written < total;)
  {
    const unsigned long piece = std::min(total - written, most);
    _output->write(bytes + written, static_cast<std::streamsize>(piece));
    written += piece;
  }
  if (_work)
  {
    _work->doneSlowly(total);
  }
  return total;
}

// The length is known when the first byte comes.
void Curl::_begin()
{
  curl_off_t told = -1;
  curl_easy_getinfo(_curl, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &told);
  const std::size_t length = told > 0 ? static_cast<std::size_t>(told) : 0;
  if (length > _bodyLimit)
  {
    _failTooLong();
  }
  if (_lengthTold && length > 0)
  {
    _lengthTold(length);
  }
  if (_stage)
  {
    _work.emplace(*_stage, length > 0 ? length : _bodyLimit);
  }
}

unsigned long Curl::_writeDataCB(void* buffer, unsigned long size, unsigned long count, void* user)
{
  if (!user)
  {
    return 0;
  }
  Curl& curl = *static_cast<Curl*>(user);
  try
  {
    return curl._writeData(buffer, size, count);
  }
  catch (...)
  {
    curl._failure = std::current_exception();
    return 0;
  }
}

// A value other than 0 would end the transfer; nothing here does.
int Curl::_progress(double, double, double, double)
{
  return 0;
}

int Curl::_progressCB(void* user, curl_off_t downloadTotal, curl_off_t downloaded,
                      curl_off_t uploadTotal, curl_off_t uploaded)
{
  if (!user)
  {
    return 0;
  }
  return static_cast<Curl*>(user)->_progress(
      static_cast<double>(downloadTotal), static_cast<double>(downloaded),
      static_cast<double>(uploadTotal), static_cast<double>(uploaded));
}

} // namespace Kelmar::Network
