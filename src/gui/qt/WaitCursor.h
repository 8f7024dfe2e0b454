#pragma once

#include <boost/core/noncopyable.hpp>

#include <QApplication>
#include <QCursor>

namespace Lumbra
{

/// Shows the wait cursor during its lifetime.
class WaitCursor : private boost::noncopyable
{
public:
  WaitCursor() { QApplication::setOverrideCursor(QCursor(::Qt::WaitCursor)); }
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};

} // namespace Lumbra
