#pragma once

#include <boost/core/noncopyable.hpp>
#include <boost/thread/mutex.hpp>

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
/// A large tree has some eleven counted objects for each leaf. So the record of an object lies in
/// the object itself, as a link of a list, and names are kept once for each type: to add or remove
/// an object costs a lock and a few stores. The order by address, which only the report needs, is
/// made when it is asked for.
class InstanceManager : private boost::noncopyable
{
public:
  using Objects = std::map<const Kelmar::Base::Ref::Careful*, std::string>;

  InstanceManager() = default;
  /// Writes the report, if any object is left.
  ~InstanceManager();

  void add(Kelmar::Base::Ref::Careful& object);
  void remove(Kelmar::Base::Ref::Careful& object);
  /// Stores the object's typeName(); without memory for it the name stays empty.
  void storeType(Kelmar::Base::Ref::Careful& object);

  std::size_t numberOfObjects() const;

  /// A copy of the table: each live object's address and type name, which is empty before the
  /// object's first reference. In the order of the addresses.
  Objects objects() const;

private:
  const std::string* _name(const Kelmar::Base::Ref::Careful& object);

  Kelmar::Base::Ref::Careful* _first = nullptr;
  std::size_t _numberOfObjects = 0;
  std::map<const std::type_info*, std::string> _typeNames;
  mutable boost::mutex _mutex;
};

extern InstanceManager instanceManager;

} // namespace Helper
