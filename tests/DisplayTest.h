#pragma once

#include "Outcome.h"
#include "foundation/InstanceManager.h"

#include <gtest/gtest.h>

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
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Helper::instanceManager.numberOfObjects(), _objects);
  }

  std::string path(const std::string& name) const { return _home + "/" + name; }
  std::string file(const std::string& name, const std::string& text) const
  {
    return orvex::test::written(path(name), text);
  }

  /// What was written to std::cout so far.
  std::string log() const { return _log.str(); }

private:
  std::size_t _objects = Helper::instanceManager.numberOfObjects();
  std::string _home = orvex::test::newFolder();
  std::ostringstream _log;
  std::streambuf* _before = std::cout.rdbuf(_log.rdbuf());
};

/// Waits for the next modal dialog of a type and answers it, while the test's code waits for the
/// answer. A dialog that never comes is a failure.
template <class Dialog>
struct Answer
{
  explicit Answer(std::function<void(Dialog&)> answer)
  {
    QObject::connect(&timer, &QTimer::timeout,
                     [this, answer]
                     {
                       auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
                       if (dialog && dialog->isVisible())
                       {
                         timer.stop();
                         answer(*dialog);
                       }
                     });
    timer.start(10);
  }
  ~Answer() { EXPECT_FALSE(timer.isActive()) << "no such dialog was shown"; }

  QTimer timer;
};
