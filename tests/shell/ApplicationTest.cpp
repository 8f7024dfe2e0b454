#include "gui/Window.h"
#include "shell/QtOutput.h"

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
  QEvent event(QEvent::User);
  Thrower known([] { throw std::runtime_error("<b>no</b> tree"); });
  {
    const Answer<QMessageBox> answer(
        [&](QMessageBox& box)
        {
          EXPECT_EQ(box.textFormat(), Qt::PlainText);
          EXPECT_EQ(log(), "") << "the line follows when the box is gone";
          EXPECT_EQ(orvex::test::confirm(box), "Error detected.|<b>no</b> tree");
        });
    EXPECT_FALSE(QApplication::sendEvent(&known, &event));
  }
  Thrower unknown([] { throw 17; });
  EXPECT_EQ(orvex::test::boxAfter([&] { QApplication::sendEvent(&unknown, &event); }),
            "Error detected.|Unknown error detected.");
  EXPECT_EQ(log(), "Error 8033290760: <b>no</b> tree\n");
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
