#pragma once

// GLEW has to come before any other OpenGL header, so all code includes OpenGL through this one.
#include <GL/glew.h>
