#include "foundation/counted/Careful.h"

#include "foundation/counted/InstanceManager.h"

#include <boost/io/ios_state.hpp>
#include <boost/thread/lock_guard.hpp>

#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <typeinfo>

namespace Kelmar::Base::Ref
{
namespace Detail
{
namespace
{

using Lock = boost::lock_guard<::Helper::SpinLock>;

std::string nameOf(const std::type_info& type)
{
  const char* name = type.name();
  return name ? name : "unknown type";
}

std::string addressOf(const Careful* object)
{
  std::ostringstream out;
  out << static_cast<const void*>(object);
  return out.str();
}

// A destructor must not throw, so errors of the stream are ignored. Written piece by piece, since
// there may be no memory to put a line together.
template <class... Pieces>
void report(const Pieces&... pieces) noexcept
{
  try
  {
    const boost::io::ios_flags_saver flags(std::cout);
    std::cout.flags(std::ios_base::dec);
    (std::cout << ... << pieces) << "\n" << std::flush;
  }
  catch (...)
  {
  }
}

} // namespace
} // namespace Detail

using State = ::Helper::InstanceShard::State;

Careful::Careful()
{
  ::Helper::InstanceShard& shard = ::Helper::instanceManager.shardOf(*this);
  const Detail::Lock lock(shard.lock());
  shard.add(*this);
}

Careful::Careful(const Careful&) : Careful() {}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): nothing is assigned
Careful& Careful::operator=(const Careful&)
{
  return *this;
}

Careful::~Careful() noexcept(false)
{
  ::Helper::InstanceShard& shard = ::Helper::instanceManager.shardOf(*this);
  State last = State::None;
  unsigned long count = 0;
  {
    const Detail::Lock lock(shard.lock());
    last = shard.remove(*this);
    count = _refCount;
  }
  if (last != State::Doomed)
  {
    Detail::report("Error 2592561907: Deleting object ", static_cast<const void*>(this),
                   " which has not been marked for deletion");
  }
  if (count != 0)
  {
    Detail::report("Error 2427831854: Deleting object ", static_cast<const void*>(this),
                   " with reference count ", count);
  }
}

std::string Careful::typeName() const
{
  return Detail::nameOf(typeid(*this));
}

std::string Careful::_describe() const
{
  return "Address " + Detail::addressOf(this) + ", type '" + typeName() + "'";
}

unsigned long Careful::refCount() const
{
  const Detail::Lock lock(::Helper::instanceManager.shardOf(*this).lock());
  return _refCount;
}

// In ref and unref no lock is held when typeName() is called, which may count objects itself.
void Careful::ref()
{
  ::Helper::InstanceShard& shard = ::Helper::instanceManager.shardOf(*this);
  unsigned long count = 0;
  State state = State::Named;
  {
    const Detail::Lock lock(shard.lock());
    count = _refCount;
    state = count == 0 ? shard.state(*this) : state;
    if (count != std::numeric_limits<unsigned long>::max() && state != State::Doomed)
    {
      ++_refCount;
    }
    // The most derived type is known only now: in the constructor, the type was that of the base.
    if (state == State::Unnamed && ::Helper::instanceManager.knows(typeid(*this)))
    {
      state = State::Named;
      shard.state(*this, state);
    }
  }
  if (count == std::numeric_limits<unsigned long>::max())
  {
    throw std::runtime_error("Error 4544591930: " + _describe() + ", attempting to increment '" +
                             Detail::nameOf(typeid(_refCount)) + "' with a value of " +
                             std::to_string(count) + " will overflow");
  }
  if (state == State::Doomed)
  {
    throw std::runtime_error(
        "Error 3162870490: " + _describe() +
        ", attempting to reference an object that has been marked for deletion");
  }
  if (state == State::Unnamed && ::Helper::instanceManager.learnName(*this))
  {
    const Detail::Lock lock(shard.lock());
    shard.state(*this, State::Named);
  }
}

void Careful::unref(bool allowDeletion)
{
  bool wasHeld = false;
  bool isDoomed = false;
  {
    ::Helper::InstanceShard& shard = ::Helper::instanceManager.shardOf(*this);
    const Detail::Lock lock(shard.lock());
    wasHeld = _refCount != 0;
    if (wasHeld && (--_refCount != 0 || !allowDeletion))
    {
      return;
    }
    isDoomed = shard.state(*this) == State::Doomed;
    if (wasHeld)
    {
      shard.state(*this, State::Doomed);
    }
  }
  if (!wasHeld)
  {
    throw std::runtime_error(
        isDoomed ? "Error 3760700259: " + _describe() +
                       ", attempting to dereference an object that has been marked for deletion"
                 : "Error 1107142984: " + _describe() +
                       ", attempting to decrement a reference count that is already zero");
  }
  _delete();
}

void Careful::_delete()
{
  const std::type_info& type = typeid(*this);
  const auto failure = [this, &type](const char* number)
  {
    return std::string("Error ") + number + ": deleting address " + Detail::addressOf(this) +
           " of type '" + ::Helper::instanceManager.nameOf(type) + "' caused an exception";
  };
  try
  {
    delete this;
  }
  catch (const std::exception& e)
  {
    const std::string reason = e.what() ? e.what() : "";
    throw std::runtime_error(failure("3897452156") + (reason.empty() ? "" : ", " + reason));
  }
  catch (...)
  {
    throw std::runtime_error(failure("2496190937"));
  }
}

void intrusive_ptr_add_ref(Careful* object)
{
  if (!object)
  {
    throw std::runtime_error("Error 6722137890: Referencing a null object");
  }
  object->ref();
}

void intrusive_ptr_release(Careful* object)
{
  if (!object)
  {
    throw std::runtime_error("Error 6722137890: Dereferencing a null object");
  }
  try
  {
    object->unref(true);
  }
  catch (const std::exception& e)
  {
    Detail::report(e.what());
    throw;
  }
}

} // namespace Kelmar::Base::Ref
