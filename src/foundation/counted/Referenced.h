#pragma once

#include "foundation/counted/Careful.h"

namespace Kelmar::Base
{

/// Base of every class that is held by boost::intrusive_ptr.
class Referenced : public Ref::Careful
{
public:
  ~Referenced() noexcept(false) override = default;
};

} // namespace Kelmar::Base
