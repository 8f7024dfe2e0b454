#pragma once

#include "foundation/InstanceManager.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>

/// Real windows under a home directory of the test's own. At the end no counted object may be left.
class DisplayTest : public testing::Test
{
protected:
  void SetUp() override
  {
    qputenv("HOME", _home.path().toLocal8Bit());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, _home.path());
    _before = std::cout.rdbuf(_log.rdbuf());
  }

  void TearDown() override
  {
    std::cout.rdbuf(_before);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(Helper::instanceManager.numberOfObjects(), _objects);
  }

  std::string path(const std::string& name) const
  {
    return _home.path().toStdString() + "/" + name;
  }

  std::string file(const std::string& name, const std::string& text) const
  {
    std::ofstream(path(name)) << text;
    return path(name);
  }

  /// What was written to std::cout so far.
  std::string log() const { return _log.str(); }

private:
  std::size_t _objects = Helper::instanceManager.numberOfObjects();
  QTemporaryDir _home;
  std::ostringstream _log;
  std::streambuf* _before = nullptr;
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
