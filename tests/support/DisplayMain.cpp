#include "shell/Application.h"

#include <gtest/gtest.h>

#include <QThread>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

int main(int argc, char** argv)
{
  testing::InitGoogleTest(&argc, argv);
  // The build asks for the list where there may be no display.
  if (GTEST_FLAG_GET(list_tests))
  {
    return RUN_ALL_TESTS();
  }
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const Brevan::Application application(argc, argv);
  QCoreApplication::setOrganizationName("TesmarGroup");
  QCoreApplication::setApplicationName("Orvex Tree Viewer");
  const int result = RUN_ALL_TESTS();
#ifdef __SANITIZE_ADDRESS__
  // The check can crash on a thread that is just ending, such as the one of a file dialog.
  QThread::msleep(100);
  // Leaks of other libraries are left out by these libraries' names, so they have to be loaded
  // still.
  __lsan_do_leak_check();
#endif
  return result;
}
