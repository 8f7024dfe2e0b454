#include "foundation/system/Environment.h"

#include <cstdlib>

namespace Kelmar::System
{

std::string Environment::get(const std::string& name)
{
  if (name.empty())
  {
    return std::string();
  }
  const char* value = std::getenv(name.c_str());
  return value ? value : "";
}

} // namespace Kelmar::System
