// Qt's toolkit in its own library, used from this program and from the suite's library at once.
#include "adapters/toolkits/LoadedToolkit.h"
#include "kvex/ClassServer.h"
#include "kvex/ComPointer.h"
#include "kvex/HostSuite.h"
#include "platform/controls/Buttons.h"
#include "platform/controls/DesignPieces.h"
#include "platform/controls/ListView.h"
#include "platform/controls/TextBox.h"
#include "tests/support/RaisedError.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>

#include <filesystem>
#include <functional>

namespace kvex::test {
namespace {

class SharedToolkit : public testing::Test {
protected:
    std::unique_ptr<Window> window() {
        return toolkit.createWindow(
            {u"frmTest", u"Test", {design::button(u"cmdDo", u"Do")}, column({place(u"cmdDo")})});
    }

    /// Shows the window, clicks its button as soon as it is active, and closes it.
    void click(Window &window) {
        const auto isShown = [] { return QApplication::activeModalWidget() != nullptr; };
        whenever(isShown, [] {
            QWidget *const shown = QApplication::activeModalWidget();
            shown->findChild<QAbstractButton *>(QStringLiteral("cmdDo"))->click();
            shown->close();
        });
        window.showModal();
    }

    /// Runs `look` on the next message box, then presses its first button.
    void atMessageBox(std::function<void(QMessageBox &)> look) {
        const auto isShown = [] { return box() != nullptr && box()->isVisible(); };
        whenever(isShown, [look = std::move(look)] {
            look(*box());
            box()->buttons().first()->click();
        });
    }

    LONG showBoxOfTheSuite() {
        LONG answer = 0;
        EXPECT_EQ(CoLoadServer(KVEX_HOST_SUITE, CLSID_Utility), S_OK) << CoLoadErrorText();
        ComPointer<IUtility> utility;
        EXPECT_EQ(createInstance(CLSID_Utility, utility), S_OK);
        EXPECT_EQ(utility->ShowMessageBox(Bstr(u"Now?").get(), message_box::yesNo, &answer), S_OK);
        return answer;
    }

    toolkits::LoadedToolkit toolkit{std::filesystem::path(KVEX_HOST_SUITE).parent_path()};

private:
    static QMessageBox *box() {
        return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    }

    /// Runs `action` once the condition holds, in the loop of whatever window is shown then.
    static void whenever(std::function<bool()> condition, std::function<void()> action) {
        QTimer::singleShot(1, QCoreApplication::instance(),
                           [condition = std::move(condition), action = std::move(action)] {
                               condition() ? action() : whenever(condition, action);
                           });
    }
};

TEST_F(SharedToolkit, AMessageOfTheSuiteStandsOverTheWindowThatTheComponentShows) {
    const auto shown = window();
    int boxes = 0;
    shown->get<CommandButton>(u"cmdDo").onClick = [&] {
        QWidget *const below = QApplication::activeModalWidget();
        ASSERT_EQ(below->objectName(), QStringLiteral("frmTest"));
        atMessageBox([&](const QMessageBox &box) {
            ++boxes;
            EXPECT_EQ(box.text(), QStringLiteral("Now?"));
            EXPECT_EQ(box.parentWidget(), below);
            EXPECT_EQ(box.windowHandle()->transientParent(), below->windowHandle());
            EXPECT_TRUE(box.isModal());
        });
        EXPECT_EQ(showBoxOfTheSuite(), message_box::yes);
    };
    click(*shown);
    EXPECT_EQ(boxes, 1);
}

TEST_F(SharedToolkit, ControlsAreFoundByTheirKind) {
    const auto built = window();
    EXPECT_EQ(built->get<CommandButton>(u"cmdDo").name(), u"cmdDo");
    EXPECT_EQ(errorNumber([&] { return &built->get<TextBox>(u"cmdDo"); }),
              error_number::controlNotFound);
}

TEST_F(SharedToolkit, AnErrorOfTheToolkitArrives) {
    EXPECT_EQ(errorNumber([&] {
                  return toolkit.createWindow(
                      {u"frmTest", u"Test", {design::button(u"cmdDo", u"Do")}, column({})});
              }),
              error_number::invalidCall);
}

TEST_F(SharedToolkit, AnErrorOfAHandlerArrivesAtTheToolkitWhole) {
    const auto shown = window();
    QString told;
    shown->get<CommandButton>(u"cmdDo").onClick = [&] {
        atMessageBox([&](const QMessageBox &box) { told = box.text(); });
        throw Error(-5, u"The row is locked.", u"Test", HelpContext::locked);
    };
    testing::internal::CaptureStderr();
    click(*shown);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "KVEXMessageRules: unhandled error in frmTest.cmdDo: error -5: The row is locked. "
              "(Test)\n");
    EXPECT_EQ(told, QStringLiteral("The row is locked."));
}

} // namespace
} // namespace kvex::test
