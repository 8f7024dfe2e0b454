#include "shell/Application.h"

#include "DisplayTest.h"
#include "shell/QtOutput.h"

#include <QMessageBox>

#include <stdexcept>

namespace
{

using Application = DisplayTest;

/// Throws from an event handler, as a slot does.
class Thrower : public QObject
{
public:
  explicit Thrower(std::function<void()> raise) : _raise(std::move(raise)) {}
  bool event(QEvent*) override
  {
    _raise();
    return true;
  }

private:
  std::function<void()> _raise;
};

TEST_F(Application, ShowsAFailureThenLogsItAndGoesOn)
{
  struct Failure
  {
    std::function<void()> raise;
    const char* shown;
    const char* logged;
  };
  std::string expectedLog;
  for (const Failure& failure :
       {
           Failure{[] { throw std::runtime_error("<b>no</b> tree"); }, "<b>no</b> tree",
                   "Error 8033290760: <b>no</b> tree\n"},
           Failure{[] { throw 17; }, "Unknown error detected.", ""},
       })
  {
    Thrower receiver(failure.raise);
    const Answer<QMessageBox> answer(
        [&](QMessageBox& box)
        {
          EXPECT_EQ(box.windowTitle(), "Error detected.");
          EXPECT_EQ(box.text(), failure.shown);
          EXPECT_EQ(box.textFormat(), Qt::PlainText);
          EXPECT_EQ(log(), expectedLog) << "the line follows when the box is gone";
          box.accept();
        });
    QEvent event(QEvent::User);
    EXPECT_FALSE(QApplication::sendEvent(&receiver, &event));
    expectedLog += failure.logged;
    EXPECT_EQ(log(), expectedLog);
  }
}

TEST_F(Application, LogsMessagesOfQtInOneLineEach)
{
  Helper::qtOutput(QtWarningMsg, "odd\rthing\r\n\n");
  Helper::qtOutput(QtDebugMsg, "\n\r");
  Helper::qtOutput(QtCriticalMsg, "bad");
  Helper::qtOutput(QtFatalMsg, "worse");
  Helper::qtOutput(QtInfoMsg, "no row");
  Helper::qtOutput(QtDebugMsg, nullptr);
  Helper::installQtOutput();
  qWarning("%s", "\xc3\xa9toile");
  qInstallMessageHandler(nullptr);
  EXPECT_EQ(log(), "Qt Warning Message: odd\nthing\nQt Debug Message: \nQt Critical Message: bad\n"
                   "Qt Fatal Message: worse\nQt Warning Message: \xc3\xa9toile\n");
}

} // namespace
