#pragma once

#include <boost/core/noncopyable.hpp>

#include <QApplication>

namespace Brevan
{

/// The application object. It guards every event: an exception that leaves a slot or an event
/// handler is shown in a box, and the event loop goes on.
class Application : public QApplication, private boost::noncopyable
{
public:
  /// Both must outlive the object.
  Application(int& argc, char** argv);

  bool notify(QObject* receiver, QEvent* event) override;

private:
  bool _notify(QObject* receiver, QEvent* event);
};

} // namespace Brevan
