#pragma once

namespace Kelmar::System
{

/// Writes a line, which begins with the program's own name, to the process's own stderr, wherever
/// std::cerr leads. Throws nothing.
/// \param text  such as why the program ends; null stands for an unknown failure
void tellOnTerminal(const char* text) noexcept;

} // namespace Kelmar::System
