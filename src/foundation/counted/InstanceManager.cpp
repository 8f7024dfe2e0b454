#include "foundation/counted/InstanceManager.h"

#include "foundation/counted/Careful.h"

#include <boost/thread/lock_guard.hpp>

#include <cstdint>
#include <cstdio>
#include <new>
#include <sstream>
#include <utility>

namespace Helper
{
namespace Detail
{
namespace
{

using Lock = boost::lock_guard<boost::mutex>;
using ShardLock = boost::lock_guard<SpinLock>;

void print(const std::string& text)
{
  if (!text.empty())
  {
    std::fprintf(stderr, "%s\n", text.c_str());
    std::fflush(stderr);
  }
}

} // namespace
} // namespace Detail

InstanceManager instanceManager;

InstanceManager::~InstanceManager()
{
  const Objects left = objects();
  if (left.empty())
  {
    return;
  }
  Detail::print(std::to_string(left.size()) + " objects remaining:\n");
  for (const auto& [object, type] : left)
  {
    std::ostringstream line;
    line << "\tAddress: " << static_cast<const void*>(object) << ", Type: " << type << "\n";
    Detail::print(line.str());
  }
}

std::atomic<const std::type_info*>& InstanceManager::_placeOf(const std::type_info& type)
{
  const auto address = reinterpret_cast<std::uintptr_t>(&type);
  return _named[address / alignof(std::type_info) % _named.size()];
}

bool InstanceManager::knows(const std::type_info& type)
{
  auto& place = _placeOf(type);
  if (place.load(std::memory_order_relaxed) == &type)
  {
    return true;
  }
  const Detail::Lock lock(_typeNamesMutex);
  const bool isKnown = _typeNames.count(&type) != 0;
  if (isKnown)
  {
    place.store(&type, std::memory_order_relaxed);
  }
  return isKnown;
}

bool InstanceManager::learnName(const Kelmar::Base::Ref::Careful& object)
{
  // Until its first reference is counted, the caller holds the object by a plain pointer, so that
  // an exception here would leak it. The name is needed for reports only.
  try
  {
    std::string name = object.typeName();
    const Detail::Lock lock(_typeNamesMutex);
    _typeNames.emplace(&typeid(object), std::move(name));
    return true;
  }
  catch (const std::bad_alloc&)
  {
    return false;
  }
}

std::string InstanceManager::nameOf(const std::type_info& type) const
{
  const Detail::Lock lock(_typeNamesMutex);
  const auto known = _typeNames.find(&type);
  return known == _typeNames.end() ? std::string() : known->second;
}

std::size_t InstanceManager::numberOfObjects() const
{
  std::size_t all = 0;
  for (const InstanceShard& shard : _shards)
  {
    const Detail::ShardLock lock(shard.lock());
    all += shard.numberOfObjects();
  }
  return all;
}

InstanceManager::Objects InstanceManager::objects() const
{
  Objects all;
  for (const InstanceShard& shard : _shards)
  {
    InstanceShard::States states;
    const Detail::ShardLock lock(shard.lock());
    shard.list(states);
    for (const auto& [object, state] : states)
    {
      const bool named = state != InstanceShard::State::Unnamed;
      all.emplace(object, named ? nameOf(typeid(*object)) : std::string());
    }
  }
  return all;
}

} // namespace Helper
