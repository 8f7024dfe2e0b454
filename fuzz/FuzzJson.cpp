// Both forms of a value accept the same texts: those that the parser that they use accepts.
#include "Require.h"
#include "tree/json/json_spirit.h"

namespace
{

template <class Config>
bool reads(const std::string& text)
{
  json_spirit::Value_impl<Config> value;
  if (!json_spirit::read(text, value))
  {
    require(!value.if_array() && !value.if_obj(), "what is no JSON leaves null");
    return false;
  }
  return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
  const std::string text(reinterpret_cast<const char*>(data), size);
  const bool asMap = reads<json_spirit::Config_map<std::string>>(text);
  require(asMap == reads<json_spirit::Config_vector<std::string>>(text), "the forms agree");
  require(asMap == nlohmann::json::accept(text), "the form agrees with the parser");
  return 0;
}
