#pragma once

#include <boost/core/noncopyable.hpp>

#include <QApplication>
#include <QCursor>

namespace Tools::Qt
{

/// Shows the wait cursor during its lifetime.
class WaitCursor : private boost::noncopyable
{
public:
  WaitCursor() { QApplication::setOverrideCursor(QCursor(::Qt::WaitCursor)); }
  ~WaitCursor() { QApplication::restoreOverrideCursor(); }
};

} // namespace Tools::Qt
