#include "foundation/counted/InstanceShard.h"

namespace Helper
{

using Kelmar::Base::Ref::Careful;

void InstanceShard::add(const Careful& object)
{
  Chunk& chunk = _chunk(object);
  _exchange(chunk, _addressOf(object), State::Unnamed);
  ++chunk.numberOfObjects;
  ++_numberOfObjects;
}

InstanceShard::State InstanceShard::remove(const Careful& object)
{
  Chunk& chunk = _chunk(object);
  const State last = _exchange(chunk, _addressOf(object), State::None);
  --_numberOfObjects;
  if (--chunk.numberOfObjects == 0)
  {
    _chunks.erase(_lastNumber);
    _lastChunk = nullptr;
  }
  return last;
}

InstanceShard::State InstanceShard::state(const Careful& object)
{
  const std::uintptr_t slot = _addressOf(object) >> _slotBits;
  return static_cast<State>(_chunk(object).states[slot % _slots / 4] >> (slot % 4 * 2) & 3);
}

void InstanceShard::state(const Careful& object, State state)
{
  _exchange(_chunk(object), _addressOf(object), state);
}

void InstanceShard::list(States& states) const
{
  for (const auto& [number, chunk] : _chunks)
  {
    for (std::size_t slot = 0; slot < _slots; ++slot)
    {
      const auto state = static_cast<State>(chunk->states[slot / 4] >> (slot % 4 * 2) & 3);
      if (state != State::None)
      {
        const std::uintptr_t address = (number << _chunkBits) + (slot << _slotBits);
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the place of the bits is all that is kept
        states.emplace(reinterpret_cast<const Careful*>(address), state);
      }
    }
  }
}

// Only a new object can need memory.
InstanceShard::Chunk& InstanceShard::_chunk(const Careful& object)
{
  const std::uintptr_t number = _addressOf(object) >> _chunkBits;
  if (!_lastChunk || number != _lastNumber)
  {
    auto known = _chunks.find(number);
    if (known == _chunks.end())
    {
      known = _chunks.emplace(number, std::make_unique<Chunk>()).first;
    }
    _lastChunk = known->second.get();
    _lastNumber = number;
  }
  return *_lastChunk;
}

InstanceShard::State InstanceShard::_exchange(Chunk& chunk, std::uintptr_t address, State state)
{
  const std::uintptr_t slot = address >> _slotBits;
  unsigned char& four = chunk.states[slot % _slots / 4];
  const unsigned int shift = slot % 4 * 2;
  const auto last = static_cast<State>(four >> shift & 3);
  four = static_cast<unsigned char>((four & ~(3u << shift)) | static_cast<unsigned int>(state)
                                                                  << shift);
  return last;
}

} // namespace Helper
