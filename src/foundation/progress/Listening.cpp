#include "foundation/progress/Listening.h"

namespace Kelmar::Progress
{
namespace Detail
{
namespace
{

// A tree service reads trees in several threads.
thread_local Listener* current = nullptr;

} // namespace
} // namespace Detail

Listening::Listening(Listener& listener) : _before(Detail::current)
{
  Detail::current = &listener;
}

Listening::~Listening()
{
  Detail::current = _before;
}

Listener* Listening::listener()
{
  return Detail::current;
}

} // namespace Kelmar::Progress
