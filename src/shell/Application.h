#pragma once

#include <boost/core/noncopyable.hpp>

#include <QApplication>

namespace Brevan
{

/// The application object: the net under every event. What a slot or an event handler lets through
/// is shown in a box, and the event loop goes on.
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
