#pragma once

#include "foundation/counted/SpinLock.h"

#include <boost/core/noncopyable.hpp>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <unordered_map>

namespace Kelmar::Base::Ref
{
class Careful;
}

namespace Helper
{

/// The counted objects that exist in a part of the address space, and the lock of their counts.
///
/// A large tree has millions of counted objects, so the record takes no room in the objects: two
/// bits for each 16 bytes of memory say whether an object starts there, and its state. The caller
/// must hold the lock during every operation.
class InstanceShard : private boost::noncopyable
{
public:
  enum class State : unsigned char
  {
    None,    ///< no object starts there
    Unnamed, ///< alive, and its type is not known yet
    Named,   ///< alive, and the name of its type is stored
    Doomed   ///< being deleted by its last reference
  };
  /// In the order of the addresses.
  using States = std::map<const Kelmar::Base::Ref::Careful*, State>;

  /// The part of the address space that contains an object.
  static std::size_t indexOf(const Kelmar::Base::Ref::Careful& object, std::size_t shards)
  {
    return _numberOf(object) % shards;
  }

  SpinLock& lock() const { return _lock; }

  /// The object is alive and unnamed.
  /// \throws std::bad_alloc
  void add(const Kelmar::Base::Ref::Careful& object)
  {
    Chunk& chunk = _chunk(object);
    chunk.exchange(_slotOf(object), State::Unnamed);
    ++chunk.numberOfObjects;
    ++_numberOfObjects;
  }
  /// \return the state until now
  State remove(const Kelmar::Base::Ref::Careful& object);

  /// The object must have been added.
  State state(const Kelmar::Base::Ref::Careful& object)
  {
    return _chunk(object).get(_slotOf(object));
  }
  void state(const Kelmar::Base::Ref::Careful& object, State state)
  {
    _chunk(object).exchange(_slotOf(object), state);
  }

  std::size_t numberOfObjects() const { return _numberOfObjects; }
  /// Adds the state of each object.
  void list(States& states) const;

private:
  // Objects are aligned to 16 bytes. A chunk is a mebibyte of the address space: large enough that
  // the next object is mostly in the same chunk, small enough for a single object.
  static constexpr unsigned int _slotBits = 4;
  static constexpr unsigned int _chunkBits = 20;
  static constexpr std::size_t _slots = std::size_t(1) << (_chunkBits - _slotBits);

  /// Two bits for each slot, four slots a byte. An array of bits takes twice as long.
  struct Chunk
  {
    State get(std::size_t slot) const
    {
      return static_cast<State>(states[slot / 4] >> _shiftOf(slot) & 3);
    }
    /// \return the state until now
    State exchange(std::size_t slot, State state)
    {
      const State last = get(slot);
      const unsigned int others = states[slot / 4] & ~(3u << _shiftOf(slot));
      const unsigned int own = static_cast<unsigned int>(state) << _shiftOf(slot);
      states[slot / 4] = static_cast<unsigned char>(others | own);
      return last;
    }

    std::array<unsigned char, _slots / 4> states{};
    std::size_t numberOfObjects = 0;

  private:
    static unsigned int _shiftOf(std::size_t slot) { return slot % 4 * 2; }
  };

  static std::uintptr_t _addressOf(const Kelmar::Base::Ref::Careful& object)
  {
    return reinterpret_cast<std::uintptr_t>(&object);
  }

  static std::size_t _slotOf(const Kelmar::Base::Ref::Careful& object)
  {
    return (_addressOf(object) >> _slotBits) % _slots;
  }
  static std::uintptr_t _numberOf(const Kelmar::Base::Ref::Careful& object)
  {
    return _addressOf(object) >> _chunkBits;
  }

  // Only a new object can need memory.
  Chunk& _chunk(const Kelmar::Base::Ref::Careful& object)
  {
    const std::uintptr_t number = _numberOf(object);
    return _lastChunk && number == _lastNumber ? *_lastChunk : _findChunk(number);
  }
  Chunk& _findChunk(std::uintptr_t number);

  std::unordered_map<std::uintptr_t, std::unique_ptr<Chunk>> _chunks;
  // The chunk that was used last, or null.
  std::uintptr_t _lastNumber = 0;
  Chunk* _lastChunk = nullptr;
  std::size_t _numberOfObjects = 0;
  mutable SpinLock _lock;
};

} // namespace Helper
