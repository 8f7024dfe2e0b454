#pragma once

#include "render/gl/device/OpenGL.h"

#include "render/gl/device/Driver.h"

#include <QCoreApplication>
#include <QGLWidget>

#include <memory>

/// A window that was asked to show, with its context of OpenGL current.
/// \param samples  whether a pixel may have several, if the driver can draw so
inline std::unique_ptr<QGLWidget> makeGlWindow(int width, int height, bool samples)
{
  QGLFormat format;
  format.setSampleBuffers(samples);
  auto window = std::make_unique<QGLWidget>(format);
  window->makeCurrent();
  if (samples && !orvex::render::gl::canMultisample())
  {
    window->setFormat(QGLFormat());
  }
  window->resize(width, height);
  window->show();
  QCoreApplication::processEvents();
  window->makeCurrent();
  return window;
}
