// How the toolkit gets its application, and what it says when it cannot. Each test runs in a
// process of its own.
#include "adapters/qt/QtApplication.h"
#include "adapters/qt/QtToolkit.h"
#include "platform/Error.h"
#include "platform/OwnerThread.h"
#include "platform/Text.h"
#include "tests/support/RaisedError.h"
#include "tests/support/VirtualDisplay.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>
#include <thread>

namespace kvex::test {
namespace {

class QtApplicationTest : public testing::Test {
protected:
    QtApplicationTest() {
        for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            unsetenv(variable);
        }
    }

    /// The error of the toolkit when it cannot show a window, "" when it can.
    std::string refusal(std::int32_t number = error_number::cannotCreateObject) {
        const auto error = test::raisedBy([&] {
            return toolkit_.createWindow({u"frmTest", u"Test", {}, column({})});
        });
        if (!error) {
            return {};
        }
        EXPECT_EQ(error->number(), number);
        return error->what();
    }

private:
    qt::QtToolkit toolkit_;
};

bool mentions(const std::string &text, const char *word) {
    return text.find(word) != std::string::npos;
}

TEST_F(QtApplicationTest, WithoutADisplayWindowsAndMessageBoxesAreRefused) {
    EXPECT_TRUE(mentions(refusal(), "DISPLAY"));
    EXPECT_EQ(test::errorNumber([] {
                  return qt::QtToolkit().showMessageBox(u"T", u"x", message_box::exclamation);
              }),
              error_number::cannotCreateObject);
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST_F(QtApplicationTest, ADisplayWithoutAServerIsRefused) {
    setenv("DISPLAY", ":9876", 1);
    EXPECT_TRUE(mentions(refusal(), "DISPLAY"));
}

TEST_F(QtApplicationTest, APlatformThatIsNotInstalledIsRefused) {
    setenv("QT_QPA_PLATFORM", "nosuchplatform", 1);
    EXPECT_TRUE(mentions(refusal(), "DISPLAY"));
}

TEST_F(QtApplicationTest, AnObstacleIsToldBeforeAnyApplicationIsMade) {
    EXPECT_EQ(qt::obstacleToWindows(),
              u"There is no display (neither $DISPLAY nor $WAYLAND_DISPLAY is set). Start the "
              u"program in a graphical session or over ssh -X.");
    setenv("DISPLAY", ":9876", 1);
    EXPECT_EQ(qt::obstacleToWindows(),
              u"There is no display that can be reached. Start the program in a graphical session, "
              u"or set DISPLAY.");
    const VirtualDisplay display;
    EXPECT_EQ(qt::obstacleToWindows(), u"");
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST_F(QtApplicationTest, AProgramWithoutWindowsIsAnObstacle) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 0;
    const QCoreApplication application(count, nullptr);
    EXPECT_EQ(qt::obstacleToWindows(), u"This program runs without windows.");
}

TEST_F(QtApplicationTest, AHostsApplicationIsNoObstacleWithoutADisplay) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 0;
    const QApplication application(count, nullptr);
    unsetenv("QT_QPA_PLATFORM");
    EXPECT_EQ(qt::obstacleToWindows(), u"");
}

TEST_F(QtApplicationTest, TheNextPlatformNamedIsTakenWhereTheFirstCannotBe) {
    setenv("QT_QPA_PLATFORM", "xcb;offscreen", 1);
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(QGuiApplication::platformName(), QStringLiteral("offscreen"));
}

TEST_F(QtApplicationTest, AfterARefusalTheToolkitTriesAgain) {
    EXPECT_NE(refusal(), "");
    const VirtualDisplay display;
    EXPECT_EQ(refusal(), "");
}

TEST_F(QtApplicationTest, AProgramWithoutWindowsKeepsItsApplication) {
    int count = 0;
    const QCoreApplication application(count, nullptr);
    EXPECT_TRUE(mentions(refusal(), "runs without windows"));
}

TEST_F(QtApplicationTest, AnotherThreadLearnsThatTheHostsApplicationOwnsTheWindows) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    int count = 0;
    const QApplication application(count, nullptr);
    std::string there;
    std::string caller;
    std::thread([&] {
        caller = toUtf8(OwnerThread().text());
        there = refusal(error_number::invalidCall);
    }).join();
    EXPECT_EQ(there, "error 5: No window can be shown from " + caller +
                         ". The windows of this program belong to the thread that made its "
                         "QApplication. Call from there. (KVEXMessageRules)");
    EXPECT_EQ(refusal(), "");
}

TEST_F(QtApplicationTest, AnotherThreadLearnsWhichOneShowedTheFirstWindow) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    EXPECT_EQ(refusal(), "");
    const std::string owner = toUtf8(OwnerThread().text());
    std::string there;
    std::thread([&] { there = refusal(error_number::invalidCall); }).join();
    EXPECT_TRUE(mentions(there, ("The windows of this program belong to " + owner +
                                 ". It showed the first window. Call from there.")
                                    .c_str()))
        << there;
}

TEST_F(QtApplicationTest, NumbersReadAndPrintAsBefore) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    EXPECT_EQ(before, "C");
    EXPECT_EQ(refusal(), "");
    EXPECT_EQ(std::setlocale(LC_NUMERIC, nullptr), before);
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C.UTF-8");
}

TEST_F(QtApplicationTest, TheClipboardIsEmptyWhereThereIsNoApplication) {
    EXPECT_FALSE(qt::QtClipboard().hasText());
    EXPECT_EQ(qt::QtClipboard().text(), u"");
}

} // namespace
} // namespace kvex::test
