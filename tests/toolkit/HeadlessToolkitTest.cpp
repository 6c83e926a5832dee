#include "tests/toolkit/HeadlessTest.h"

#include "platform/Error.h"
#include "tests/recordset/FailingMemory.h"
#include "tests/support/RaisedError.h"

#include <optional>
#include <stdexcept>

namespace kvex::headless {
namespace {

using test::control;

class HeadlessToolkitTest : public HeadlessTest {
protected:
    [[nodiscard]] std::string onlyProblem() const {
        EXPECT_EQ(toolkit_.problems().size(), 1U);
        return toolkit_.problems().empty() ? std::string() : toolkit_.problems().front();
    }
};

TEST_F(HeadlessToolkitTest, ClosesAWindowThatNobodyWaitsFor) {
    const auto shown = window({});
    shown->showModal();
    EXPECT_EQ(onlyProblem(), "frmTest: was shown, which nobody waits for");
}

TEST_F(HeadlessToolkitTest, ClosesAnotherWindowThanTheAwaitedOne) {
    bool played = false;
    toolkit_.whenShown(u"frmOther", [&](User &user) {
        played = true;
        user.closeByFrame();
    });
    window({})->showModal();
    EXPECT_EQ(onlyProblem(), "frmTest: was shown, but awaited is frmOther");
    EXPECT_FALSE(played);
    EXPECT_EQ(toolkit_.pendingScripts(), 1U);
    window({}, u"frmOther")->showModal();
    EXPECT_TRUE(played);
    EXPECT_EQ(toolkit_.pendingScripts(), 0U);
}

TEST_F(HeadlessToolkitTest, PlaysTheScriptForAnyWindowOnlyWhereNoOtherScriptWaits) {
    std::vector<std::string> played;
    toolkit_.whenAnyShown([&](User &user) {
        played.emplace_back("any");
        user.closeByFrame();
    });
    show(*window({}), [&](User &user) {
        played.emplace_back("awaited");
        user.closeByFrame();
    });
    window({})->showModal();
    window({}, u"frmOther")->showModal();
    EXPECT_EQ(played, (std::vector<std::string>{"awaited", "any", "any"}));
    EXPECT_EQ(toolkit_.problems(), std::vector<std::string>());
}

TEST_F(HeadlessToolkitTest, ClosesAWindowThatItsScriptLeavesOpen) {
    const auto shown = window({});
    show(*shown, [](User &) {});
    EXPECT_EQ(onlyProblem(), "frmTest: was left open");
}

TEST_F(HeadlessToolkitTest, ClosesAWindowWhoseScriptFails) {
    const auto shown = window({});
    show(*shown, [](User &user) { static_cast<void>(user.get<TextBox>(u"txtNone")); });
    EXPECT_EQ(onlyProblem(), "frmTest: the script failed: error 730: Control not found "
                             "(KVEXMessageRules)");
}

TEST_F(HeadlessToolkitTest, ClosesAWindowWhoseScriptFailsWithoutMemoryToSaySo) {
    std::optional<test::FailingMemory> failing;
    const auto outer = window({control(ControlKind::commandButton, u"cmd", u"Open")});
    outer->get<CommandButton>(u"cmd").onClick = [&] { window({}, u"frmInner")->showModal(); };
    toolkit_.whenShown(u"frmTest", [&](User &user) {
        user.click(u"cmd");
        user.press(Key::tab);
        EXPECT_EQ(user.focused(), u"cmd");
        user.closeByFrame();
    });
    toolkit_.whenShown(u"frmInner", [&](User &) {
        failing.emplace(0);
        throw 1;
    });
    outer->showModal();
    ASSERT_EQ(toolkit_.unhandledErrors().size(), 1U);
    EXPECT_EQ(toolkit_.unhandledErrors()[0].number(), error_number::outOfMemory);
    EXPECT_EQ(toolkit_.problems(), std::vector<std::string>());
}

TEST_F(HeadlessToolkitTest, KeepsTheErrorsThatLeftAHandler) {
    const auto shown = window({control(ControlKind::commandButton, u"cmd", u"Go")});
    shown->get<CommandButton>(u"cmd").onClick = [] { throw Error(error_number::objectNotSet); };
    show(*shown, [](User &user) {
        user.click(u"cmd");
        user.closeByFrame();
    });
    ASSERT_EQ(toolkit_.unhandledErrors().size(), 1U);
    EXPECT_EQ(toolkit_.unhandledErrors()[0].number(), error_number::objectNotSet);
    EXPECT_TRUE(toolkit_.problems().empty());
}

TEST_F(HeadlessToolkitTest, AnswersMessageBoxesInTurnAndRecordsThem) {
    toolkit_.answerNext(message_box::yes);
    EXPECT_EQ(toolkit_.showMessageBox(u"T", u"Sure?", message_box::yesNo), message_box::yes);
    EXPECT_EQ(toolkit_.showMessageBox(u"T", u"Sure?", message_box::yesNo), message_box::no);
    EXPECT_EQ(toolkit_.showMessageBox(u"T", u"Done", message_box::exclamation), message_box::ok);
    ASSERT_EQ(toolkit_.messageBoxes().size(), 3U);
    EXPECT_EQ(toolkit_.messageBoxes()[2].text, u"Done");
    EXPECT_EQ(toolkit_.messageBoxes()[2].style, message_box::exclamation);
    EXPECT_TRUE(toolkit_.problems().empty());
}

TEST_F(HeadlessToolkitTest, CannotAnswerByAButtonThatAMessageBoxLacks) {
    toolkit_.answerNext(message_box::yes);
    EXPECT_EQ(toolkit_.showMessageBox(u"T", u"Done", message_box::exclamation), message_box::ok);
    EXPECT_EQ(onlyProblem(), "T: the message box \"Done\" has no button for the answer 6");
}

TEST_F(HeadlessToolkitTest, PlaysTheScriptOfAWindowThatAHandlerShows) {
    const auto outer = window({control(ControlKind::commandButton, u"cmd", u"Open")});
    outer->get<CommandButton>(u"cmd").onClick = [&] { window({}, u"frmInner")->showModal(); };
    std::u16string order;
    toolkit_.whenShown(u"frmTest", [&](User &user) {
        order += u"a";
        user.click(u"cmd");
        order += u"c";
        user.closeByFrame();
    });
    toolkit_.whenShown(u"frmInner", [&](User &user) {
        order += u"b";
        user.closeByFrame();
    });
    outer->showModal();
    EXPECT_EQ(order, u"abc");
    EXPECT_TRUE(toolkit_.problems().empty());
}

} // namespace
} // namespace kvex::headless
