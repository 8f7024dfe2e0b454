#include "support/RecordedOpenGL.h"

#include "render/gl/device/OpenGL.h"

#include <sstream>

static std::string calls;

struct Call
{
  const char* name;

  template <class... Arguments>
  void operator()(Arguments... arguments) const
  {
    std::ostringstream line;
    line << std::hex << std::showbase << name;
    ((line << ' ' << arguments), ...);
    noteCall(line.str());
  }
};

std::string callsOf(const std::function<void()>& action)
{
  calls.clear();
  action();
  return calls;
}

void noteCall(const std::string& line)
{
  calls += line + "\n";
}

// A program's own definition is taken before that of a shared library.
#define RECORD(name, parameters, arguments)                                                        \
  void GLAPIENTRY name parameters                                                                  \
  {                                                                                                \
    Call{#name} arguments;                                                                         \
  }
RECORD(glBindTexture, (GLenum target, GLuint texture), (target, texture))
RECORD(glBlendFunc, (GLenum source, GLenum destination), (source, destination))
RECORD(glColorPointer, (GLint n, GLenum type, GLsizei stride, const void* p), (n, type, stride, p))
RECORD(glDeleteTextures, (GLsizei count, const GLuint* names), (count, *names))
RECORD(glDisable, (GLenum capability), (capability))
RECORD(glDisableClientState, (GLenum array), (array))
RECORD(glDrawArrays, (GLenum mode, GLint first, GLsizei count), (mode, first, count))
RECORD(glEnable, (GLenum capability), (capability))
RECORD(glEnableClientState, (GLenum array), (array))
RECORD(glGenTextures, (GLsizei count, GLuint* names), (count, *names = 7))
RECORD(glLoadIdentity, (), ())
RECORD(glLoadMatrixd, (const GLdouble* m), (m[0], m[5], m[10], m[12], m[13], m[14], m[15]))
RECORD(glMatrixMode, (GLenum mode), (mode))
RECORD(glPixelStorei, (GLenum mode, GLint value), (mode, value))
RECORD(glPolygonMode, (GLenum face, GLenum mode), (face, mode))
RECORD(glPopAttrib, (), ())
RECORD(glPopClientAttrib, (), ())
RECORD(glPopMatrix, (), ())
RECORD(glPushAttrib, (GLbitfield mask), (mask))
RECORD(glPushClientAttrib, (GLbitfield mask), (mask))
RECORD(glPushMatrix, (), ())
RECORD(glTexImage2D,
       (GLenum target, GLint level, GLint internal, GLsizei width, GLsizei height, GLint border,
        GLenum format, GLenum type, const void* pixels),
       (target, level, internal, width, height, border, format, type, pixels))
RECORD(glTexParameteri, (GLenum target, GLenum name, GLint value), (target, name, value))
RECORD(glVertexPointer, (GLint n, GLenum type, GLsizei stride, const void* p), (n, type, stride, p))
#undef RECORD
