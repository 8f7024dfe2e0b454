#include "tree/service/JsonTreeList.h"

#include "tree/json/json_spirit.h"
#include "tree/service/BadJsonValue.h"
#include "tree/service/TreeData.h"

#include <stdexcept>
#include <string>

namespace orvex
{
namespace Detail
{
namespace
{

using Value = json_spirit::Value_impl<json_spirit::Config_vector<std::string>>;

// A wrong id throws the boost::bad_get of the value itself, whose text is a fixed one.
boost::shared_ptr<TreeData> makeRow(const Value::Object& entry, std::size_t number)
{
  boost::shared_ptr<TreeData> row(new TreeData);
  for (const auto& pair : entry)
  {
    if (pair.name_ == "id")
    {
      row->id = pair.value_.get_int();
    }
    else if (pair.name_ == "treeName")
    {
      if (!pair.value_.if_str())
      {
        throw BadJsonValue("The \"treeName\" of entry " + std::to_string(number) +
                           " of the tree service's list is no text.");
      }
      row->name = pair.value_.get_str();
    }
  }
  return row;
}

} // namespace
} // namespace Detail

void readTreeList(const std::string& body, const std::string& url,
                  std::vector<boost::shared_ptr<TreeData>>& trees)
{
  Detail::Value value;
  if (!json_spirit::read(body, value))
  {
    throw std::runtime_error("The tree service did not answer with JSON, URL = " + url);
  }
  if (!value.if_array())
  {
    throw std::runtime_error("The tree service did not answer with a list of trees, URL = " + url);
  }
  const Detail::Value::Array& entries = value.get_array();
  for (std::size_t i = 0; i < entries.size(); ++i)
  {
    const Detail::Value::Object* entry = entries[i].if_obj();
    if (!entry)
    {
      throw std::runtime_error("Entry " + std::to_string(i + 1) +
                               " of the tree service's list is no tree, URL = " + url);
    }
    trees.push_back(Detail::makeRow(*entry, i + 1));
  }
}

} // namespace orvex
