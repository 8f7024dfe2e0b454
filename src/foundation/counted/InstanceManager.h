#pragma once

#include "foundation/counted/InstanceShard.h"

#include <boost/core/noncopyable.hpp>
#include <boost/thread/mutex.hpp>

#include <array>
#include <atomic>
#include <cstddef>
#include <map>
#include <string>
#include <typeinfo>

namespace Kelmar::Base::Ref
{
class Careful;
}

namespace Helper
{

/// Knows every counted object alive, with its type's name, and lists on stderr those that are left
/// when the program ends.
///
/// Names are kept once for each type. The objects are registered in shards, each with a lock that
/// also guards their counts: with a lock in each object, the objects would be several times as
/// large. The order by address is needed only for the report and made then.
class InstanceManager : private boost::noncopyable
{
public:
  using Objects = std::map<const Kelmar::Base::Ref::Careful*, std::string>;

  InstanceManager() = default;
  /// Writes the report, if any object is left.
  ~InstanceManager();

  InstanceShard& shardOf(const Kelmar::Base::Ref::Careful& object)
  {
    return _shards[InstanceShard::indexOf(object, _shards.size())];
  }

  /// Whether the name of a class is stored.
  bool knows(const std::type_info& type);
  /// Stores the name of the object's class. Calls its typeName(), which may itself count objects,
  /// so no lock may be held. \return false if there is no memory for it
  bool learnName(const Kelmar::Base::Ref::Careful& object);
  /// The typeName() of the objects of a class; empty if none was stored.
  std::string nameOf(const std::type_info& type) const;

  std::size_t numberOfObjects() const;

  /// A copy of the table: each live object's address and type name, which is empty before the
  /// object's first reference. In the order of the addresses. To be called while no other thread
  /// deletes an object, since the objects are asked for their classes.
  Objects objects() const;

private:
  std::atomic<const std::type_info*>& _placeOf(const std::type_info& type);

  std::array<InstanceShard, 64> _shards;
  std::map<const std::type_info*, std::string> _typeNames;
  mutable boost::mutex _typeNamesMutex;
  // Types whose name is stored, found by the address of the type, so that most objects do not need
  // the lock of the names.
  std::array<std::atomic<const std::type_info*>, 256> _named{};
};

extern InstanceManager instanceManager;

} // namespace Helper
