#pragma once

namespace Kelmar::System
{

/// Writes why the program ends as one line, which begins with the program's own name, to the
/// process's own stderr, wherever std::cerr leads. Throws nothing.
/// \param reason  null stands for an unknown one
void tellOnTerminal(const char* reason) noexcept;

} // namespace Kelmar::System
