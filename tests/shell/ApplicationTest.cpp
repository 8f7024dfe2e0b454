#include "shell/QtOutput.h"
#include "support/Window.h"

#include <QLoggingCategory>

#include <stdexcept>

class ApplicationTest : public DisplayTest
{
protected:
  /// The box after an action that throws from the event loop, as a slot does.
  static std::string boxFor(const std::function<void()>& raise)
  {
    QAction action(nullptr);
    QObject::connect(&action, &QAction::triggered, raise);
    return boxAfter([&] { triggerFromLoop(action); });
  }
};

TEST_F(ApplicationTest, ShowsAFailureThenLogsItAndGoesOn)
{
  EXPECT_EQ(boxFor([] { throw std::runtime_error("<b>no</b> tree"); }),
            "Error detected.|<b>no</b> tree");
  EXPECT_EQ(boxFor([] { throw 17; }), "Error detected.|Unknown error detected.");
  struct Silent : std::exception
  {
    const char* what() const noexcept override { return nullptr; }
  };
  EXPECT_EQ(boxFor([] { throw Silent(); }), "Error detected.|Unknown error detected.");
  EXPECT_EQ(log(), "Error 8033290760: <b>no</b> tree\nError 8033290760: \n");
}

TEST_F(ApplicationTest, LogsMessagesOfQtUnderTheirLevels)
{
  Helper::qtOutput(QtWarningMsg, "odd\rthing\r\n\n");
  Helper::qtOutput(QtDebugMsg, "\n\r");
  Helper::qtOutput(QtCriticalMsg, "bad");
  Helper::qtOutput(QtFatalMsg, "worse");
  Helper::qtOutput(QtInfoMsg, "has no level in the log");
  Helper::qtOutput(QtDebugMsg, nullptr);
  Helper::installQtOutput("");
  qWarning("%s", "\xc3\xa9toile");
  const QLoggingCategory windowSystem("qt.qpa.xcb");
  qCWarning(windowSystem, "XCB error: 3 (BadWindow), id: 1, major code: 40 (TranslateCoords)");
  qCWarning(windowSystem, "XCB error: 3 (BadWindow), id: 1, major code: 18 (ChangeProperty)");
  qInstallMessageHandler(nullptr);
  EXPECT_EQ(log(),
            "Qt Warning Message: odd\nthing\nQt Debug Message: \nQt Critical Message: bad\n"
            "Qt Fatal Message: worse\nQt Warning Message: \xc3\xa9toile\nQt Warning Message: "
            "XCB error: 3 (BadWindow), id: 1, major code: 18 (ChangeProperty)\n");
}
