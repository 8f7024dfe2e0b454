#include "foundation/system/UserDirectory.h"

#include "foundation/system/Environment.h"

#include <stdexcept>

namespace Kelmar::User
{
namespace Detail
{
namespace
{

std::string home(const char* failure)
{
  std::string dir = System::Environment::get("HOME");
  if (dir.empty())
  {
    throw std::runtime_error(failure);
  }
  if (dir.back() == '/')
  {
    dir.pop_back();
  }
  return dir;
}

} // namespace
} // namespace Detail

std::string Directory::documents()
{
  return Detail::home("Error 2322383190: Failed to find user's document directory");
}

std::string Directory::appData()
{
  return Detail::home("Error 3888703160: Failed to find user's application-data directory");
}

std::string Directory::vendor(const std::string& vendor)
{
  if (vendor.empty())
  {
    throw std::runtime_error("Error 2017220875: Empty vendor name given.");
  }
  return appData() + "/." + vendor;
}

std::string Directory::program(const std::string& vendor, const std::string& program)
{
  if (program.empty())
  {
    throw std::runtime_error("Error 3166677210: Empty program name given.");
  }
  return Directory::vendor(vendor) + "/" + program;
}

} // namespace Kelmar::User
