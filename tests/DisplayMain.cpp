#include "shell/Application.h"

#include <gtest/gtest.h>

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
  return RUN_ALL_TESTS();
}
