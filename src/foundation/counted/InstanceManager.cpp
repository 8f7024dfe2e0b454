#include "foundation/counted/InstanceManager.h"

#include "foundation/counted/Careful.h"

#include <boost/thread/lock_guard.hpp>

#include <cstdio>
#include <new>
#include <sstream>

namespace Helper
{
namespace Detail
{

using Lock = boost::lock_guard<boost::mutex>;

void print(const std::string& text)
{
  if (!text.empty())
  {
    std::fprintf(stderr, "%s\n", text.c_str());
    std::fflush(stderr);
  }
}

} // namespace Detail

InstanceManager instanceManager;

InstanceManager::~InstanceManager()
{
  if (!_first)
  {
    return;
  }
  const Objects left = objects();
  Detail::print(std::to_string(left.size()) + " objects remaining:\n");
  for (const auto& [object, type] : left)
  {
    std::ostringstream line;
    line << "\tAddress: " << static_cast<const void*>(object) << ", Type: " << type << "\n";
    Detail::print(line.str());
  }
}

void InstanceManager::add(Kelmar::Base::Ref::Careful& object)
{
  const Detail::Lock lock(_mutex);
  object._nextInstance = _first;
  if (_first)
  {
    _first->_previousInstance = &object;
  }
  _first = &object;
  ++_numberOfObjects;
}

void InstanceManager::remove(Kelmar::Base::Ref::Careful& object)
{
  const Detail::Lock lock(_mutex);
  if (object._nextInstance)
  {
    object._nextInstance->_previousInstance = object._previousInstance;
  }
  if (object._previousInstance)
  {
    object._previousInstance->_nextInstance = object._nextInstance;
  }
  else
  {
    _first = object._nextInstance;
  }
  --_numberOfObjects;
}

void InstanceManager::storeType(Kelmar::Base::Ref::Careful& object)
{
  const Detail::Lock lock(_mutex);
  // The caller holds the object by a plain pointer until its first reference stands, so that an
  // exception here would leave it behind. A name only serves reports.
  try
  {
    object._registeredType = _name(object);
  }
  catch (const std::bad_alloc&)
  {
  }
}

const std::string* InstanceManager::_name(const Kelmar::Base::Ref::Careful& object)
{
  // A class has one name, so its objects need not be asked again and again.
  const std::type_info* type = &typeid(object);
  auto known = _typeNames.find(type);
  if (known == _typeNames.end())
  {
    known = _typeNames.emplace(type, object.typeName()).first;
  }
  return &known->second;
}

std::size_t InstanceManager::numberOfObjects() const
{
  const Detail::Lock lock(_mutex);
  return _numberOfObjects;
}

InstanceManager::Objects InstanceManager::objects() const
{
  const Detail::Lock lock(_mutex);
  Objects all;
  for (const Kelmar::Base::Ref::Careful* object = _first; object; object = object->_nextInstance)
  {
    all.emplace(object, object->_registeredType ? *object->_registeredType : std::string());
  }
  return all;
}

} // namespace Helper
