#include "foundation/counted/InstanceShard.h"

#include "foundation/counted/Careful.h"

namespace Helper
{

using Kelmar::Base::Ref::Careful;

InstanceShard::State InstanceShard::remove(const Careful& object)
{
  static_assert(alignof(Careful) == std::size_t(1) << _slotBits, "two objects share no slot");
  Chunk& chunk = _chunk(object);
  const State last = chunk.exchange(_slotOf(object), State::None);
  --_numberOfObjects;
  if (--chunk.numberOfObjects == 0)
  {
    _chunks.erase(_numberOf(object));
    _lastChunk = nullptr;
  }
  return last;
}

void InstanceShard::list(States& states) const
{
  for (const auto& [number, chunk] : _chunks)
  {
    for (std::size_t slot = 0; slot < _slots; ++slot)
    {
      const State state = chunk->get(slot);
      if (state != State::None)
      {
        const std::uintptr_t address = (number << _chunkBits) + (slot << _slotBits);
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the place of the bits is all that is kept
        states.emplace(reinterpret_cast<const Careful*>(address), state);
      }
    }
  }
}

InstanceShard::Chunk& InstanceShard::_findChunk(std::uintptr_t number)
{
  auto known = _chunks.find(number);
  if (known == _chunks.end())
  {
    known = _chunks.emplace(number, std::make_unique<Chunk>()).first;
  }
  _lastChunk = known->second.get();
  _lastNumber = number;
  return *_lastChunk;
}

} // namespace Helper
