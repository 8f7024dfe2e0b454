#pragma once

#include "foundation/progress/Work.h"

#include <boost/variant.hpp>

#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// JSON values in the form of a boost::variant, so that asking for the wrong type throws
/// boost::bad_get. The text is parsed by nlohmann's parser.
namespace json_spirit
{

template <class Config>
class Value_impl;

/// An object is a map; if a key is given twice, the last value counts.
template <class String>
struct Config_map
{
  using String_type = String;
  using Value_type = Value_impl<Config_map>;
  using Array_type = std::vector<Value_type>;
  using Object_type = std::map<String, Value_type>;

  static Value_type& add(Object_type& object, String&& name) { return object[std::move(name)]; }
  static Value_type& value(typename Object_type::value_type& entry) { return entry.second; }
};

template <class Config>
struct Pair_impl
{
  typename Config::String_type name_;
  typename Config::Value_type value_;
};

/// An object is a vector of its pairs in the order of the text.
template <class String>
struct Config_vector
{
  using String_type = String;
  using Value_type = Value_impl<Config_vector>;
  using Array_type = std::vector<Value_type>;
  using Object_type = std::vector<Pair_impl<Config_vector>>;

  static Value_type& add(Object_type& object, String&& name)
  {
    object.push_back({std::move(name), Value_type()});
    return object.back().value_;
  }
  static Value_type& value(typename Object_type::value_type& entry) { return entry.value_; }
};

/// One value; null at first. It moves but does not copy, and values nested to any depth are
/// destroyed without recursion.
template <class Config>
class Value_impl
{
public:
  using Object = typename Config::Object_type;
  using Array = typename Config::Array_type;
  using String = typename Config::String_type;
  struct Null
  {
  };
  /// A number is an int if it is written as an integer and fits, else a double.
  using Variant = boost::variant<Null, bool, int, double, String, Array, Object>;

  Value_impl() = default;
  explicit Value_impl(Variant&& variant) : _variant(std::move(variant)) {}
  Value_impl(Value_impl&&) noexcept = default;
  Value_impl& operator=(Value_impl&&) noexcept = default;
  ~Value_impl()
  {
    try
    {
      _dismantle();
    }
    catch (const std::bad_alloc&)
    {
      // Without memory for the list, the remaining values are destroyed by recursion.
    }
  }

  /// \throws boost::bad_get  if the value is of another type; so do the next four
  const Object& get_obj() const { return boost::get<Object>(_variant); }
  const Array& get_array() const { return boost::get<Array>(_variant); }
  const String& get_str() const { return boost::get<String>(_variant); }
  int get_int() const { return boost::get<int>(_variant); }

  /// Null if the value is of another type.
  const Object* if_obj() const { return boost::get<Object>(&_variant); }
  const Array* if_array() const { return boost::get<Array>(&_variant); }
  const String* if_str() const { return boost::get<String>(&_variant); }
  Object* if_obj() { return boost::get<Object>(&_variant); }
  Array* if_array() { return boost::get<Array>(&_variant); }

private:
  // Containers are emptied from their ends, without recursion. Of each level only one is open at a
  // time, so that a wide value takes no further memory.
  void _dismantle()
  {
    std::vector<Value_impl> open;
    _moveIfContainer(open);
    while (!open.empty())
    {
      Value_impl last = open.back()._takeLast();
      if (!open.back()._hasValues())
      {
        open.pop_back();
      }
      last._moveIfContainer(open);
    }
  }

  bool _hasValues() const
  {
    const Array* array = if_array();
    const Object* object = if_obj();
    return (array && !array->empty()) || (object && !object->empty());
  }

  Value_impl _takeLast()
  {
    if (Array* array = if_array())
    {
      Value_impl last = std::move(array->back());
      array->pop_back();
      return last;
    }
    Object& object = *if_obj();
    const auto entry = std::prev(object.end());
    Value_impl last = std::move(Config::value(*entry));
    object.erase(entry);
    return last;
  }

  void _moveIfContainer(std::vector<Value_impl>& open)
  {
    if (_hasValues())
    {
      open.push_back(std::move(*this));
    }
  }

  Variant _variant;
};

/// Used by read alone: builds the value while nlohmann's parser reports what it meets. Its
/// operations' names and types are the parser's; false from one of them ends the parsing.
template <class Config>
class Builder
{
public:
  using Value = Value_impl<Config>;
  using Array = typename Config::Array_type;
  using Object = typename Config::Object_type;

  Builder(Value& root, std::size_t mostValues, Kelmar::Progress::Work* work)
      : _next(&root), _mostValues(mostValues), _work(work)
  {
  }

  bool null() { return _add(typename Value::Null()); }
  bool boolean(bool value) { return _add(value); }
  bool number_integer(std::int64_t value) { return _addInteger(value); }
  bool number_unsigned(std::uint64_t value) { return _addInteger(value); }
  bool number_float(double value, const std::string&) { return _add(value); }
  bool string(std::string& value) { return _add(std::move(value)); }
  bool binary(std::vector<std::uint8_t>&) { return false; }
  bool start_object(std::size_t)
  {
    if (_work)
    {
      _work->done();
    }
    return _open<Object>();
  }
  bool end_object() { return _close(); }
  bool start_array(std::size_t) { return _open<Array>(); }
  bool end_array() { return _close(); }
  bool key(std::string& name)
  {
    _next = &Config::add(*_containers.back()->if_obj(), std::move(name));
    return true;
  }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&)
  {
    return false;
  }

private:
  template <class Integer>
  bool _addInteger(Integer value)
  {
    const double wide = static_cast<double>(value);
    if (wide < std::numeric_limits<int>::min() || wide > std::numeric_limits<int>::max())
    {
      return _add(wide);
    }
    return _add(static_cast<int>(value));
  }

  template <class Content>
  bool _add(Content&& content)
  {
    _place() = Value(typename Value::Variant(std::forward<Content>(content)));
    return true;
  }

  template <class Container>
  bool _open()
  {
    Value& value = _place();
    value = Value(typename Value::Variant(Container()));
    // The pointer stays valid: a container does not grow while one of its values is being filled.
    _containers.push_back(&value);
    return true;
  }

  bool _close()
  {
    _containers.pop_back();
    return true;
  }

  // The value to fill: the root, that of the last key, or a new last one of the innermost array.
  Value& _place()
  {
    if (_numberOfValues++ == _mostValues)
    {
      throw std::runtime_error("The answer has more than " + std::to_string(_mostValues) +
                               " JSON values.");
    }
    if (_next)
    {
      return *std::exchange(_next, nullptr);
    }
    return _containers.back()->if_array()->emplace_back();
  }

  Value* _next;
  std::vector<Value*> _containers;
  std::size_t _mostValues;
  std::size_t _numberOfValues = 0;
  Kelmar::Progress::Work* _work;
};

/// Enough for a tree of five million leaves. A value takes up to a hundred bytes, its text only
/// two.
constexpr std::size_t maximumValues = std::size_t(1) << 25;

/// \param work  of which a unit is done for each object; may be null
/// \return whether \p text is JSON; if not, \p value is null
/// \throws std::runtime_error  if it has more than \p mostValues values
template <class Config>
bool read(const std::string& text, Value_impl<Config>& value,
          std::size_t mostValues = maximumValues, Kelmar::Progress::Work* work = nullptr)
{
  value = Value_impl<Config>();
  Builder<Config> builder(value, mostValues, work);
  if (nlohmann::json::sax_parse(text, &builder))
  {
    return true;
  }
  value = Value_impl<Config>();
  return false;
}

} // namespace json_spirit
