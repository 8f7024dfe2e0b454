#pragma once

namespace Kelmar::System
{

/// Has the allocator give the memory that it holds unused back to the system. To be called where
/// much of it became free, since otherwise neither other programs nor the system's own count of
/// free memory would get it. Takes some milliseconds for a gibibyte. Without mimalloc in the
/// process it does what libc's allocator can.
void giveBackMemory();

} // namespace Kelmar::System
