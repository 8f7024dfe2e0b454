#pragma once

#include <functional>
#include <string>

/// Does something and tells which calls of OpenGL it made, with their arguments, one call a line.
///
/// For programs that are linked with RecordedOpenGL.cpp: there calls of OpenGL are only noted. They
/// need no display and no context, and draw nothing. What is expected can therefore be written as
/// calls too. Every texture gets the name 7.
std::string callsOf(const std::function<void()>& action);

/// Adds a line of the test's own to the calls.
void noteCall(const std::string& line);
