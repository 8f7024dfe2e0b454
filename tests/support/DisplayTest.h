#pragma once

#include "foundation/counted/InstanceManager.h"
#include "support/Outcome.h"

#include <QApplication>
#include <QDialog>
#include <QSettings>
#include <QTimer>

#include <functional>

/// Real windows under a home directory of the test's own. At the end no counted object may be left.
class DisplayTest : public testing::Test
{
protected:
  DisplayTest()
  {
    setenv("HOME", _home.c_str(), 1);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, QString::fromStdString(_home));
  }

  ~DisplayTest() override
  {
    std::cout.rdbuf(_before);
    deleteWhatIsDoomed();
    EXPECT_EQ(Helper::instanceManager.numberOfObjects(), _objects);
  }

  static void deleteWhatIsDoomed()
  {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  std::string path(const std::string& name) const { return _home + "/" + name; }
  std::string file(const std::string& name, const std::string& text) const
  {
    return writeFile(path(name), text);
  }

  /// What was written to std::cout so far.
  std::string log() const { return _log.str(); }

private:
  std::size_t _objects = Helper::instanceManager.numberOfObjects();
  std::string _home = newFolder();
  std::ostringstream _log;
  std::streambuf* _before = std::cout.rdbuf(_log.rdbuf());
};

/// Does something that shows a modal dialog of a type, and answers that dialog. One that never
/// comes is a failure.
template <class Dialog>
void answerDialog(const std::function<void()>& action, const std::function<void(Dialog&)>& answer)
{
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout,
                   [&]
                   {
                     auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
                     if (dialog && dialog->isVisible())
                     {
                       timer.stop();
                       answer(*dialog);
                     }
                   });
  timer.start(10);
  action();
  EXPECT_FALSE(timer.isActive()) << "no such dialog was shown";
}
