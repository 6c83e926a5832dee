#include "tests/toolkit/Conformance.h"

#include "platform/Error.h"

#include <iostream>
#include <sstream>

namespace kvex::test {
namespace {

constexpr auto button = ControlKind::commandButton;

TEST_P(ToolkitConformance, WindowFindsItsControlsByNameAndKind) {
    const auto shown = window({control(button, u"cmdOne"), control(ControlKind::listView, u"lvw"),
                               control(ControlKind::label, u"lbl")});
    EXPECT_EQ(shown->get<CommandButton>(u"cmdOne").name(), u"cmdOne");
    EXPECT_EQ(shown->get<ListView>(u"lvw").name(), u"lvw");
    EXPECT_EQ(shown->get<Label>(u"lbl").name(), u"lbl");
    EXPECT_EQ(shown->get<Control>(u"cmdOne").name(), u"cmdOne");
}

TEST_P(ToolkitConformance, WindowFailsToFindAControlOfAnotherNameOrKind) {
    const auto shown = window({control(button, u"cmdOne")});
    EXPECT_EQ(errorNumber([&] { static_cast<void>(shown->get<Control>(u"cmdTwo")); }),
              error_number::controlNotFound);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(shown->get<Control>(u"CMDONE")); }),
              error_number::controlNotFound);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(shown->get<Control>(u"")); }),
              error_number::controlNotFound);
    EXPECT_EQ(errorNumber([&] { static_cast<void>(shown->get<TextBox>(u"cmdOne")); }),
              error_number::controlNotFound);
}

TEST_P(ToolkitConformance, WindowOfADesignThatContradictsItselfIsNotBuilt) {
    EXPECT_EQ(errorNumber([&] {
                  static_cast<void>(window({control(button, u"cmd"), control(button, u"cmd")}));
              }),
              error_number::invalidCall);
    EXPECT_EQ(errorNumber([&] {
                  static_cast<void>(toolkit().createWindow(
                      {u"frmTest", u"Test", {control(button, u"cmd")}, spring()}));
              }),
              error_number::invalidCall);
}

TEST_P(ToolkitConformance, WindowCaptionIsTheDesignsUntilSet) {
    const auto shown = window({});
    EXPECT_EQ(shown->caption(), u"Test");
    shown->setCaption(u"Ä & B");
    EXPECT_EQ(shown->caption(), u"Ä & B");
}

TEST_P(ToolkitConformance, CloseEndsShowModalAfterTheHandlerThatCalledIt) {
    const auto shown = window({control(button, u"cmdClose", u"&Close")});
    bool finished = false;
    shown->get<CommandButton>(u"cmdClose").onClick = [&] {
        shown->close();
        shown->setCaption(u"Closed");
        finished = true;
    };
    bool openAfterwards = true;
    show(*shown, [&](Hands &user) {
        EXPECT_TRUE(user.isOpen());
        EXPECT_FALSE(finished);
        user.click(u"cmdClose");
        openAfterwards = user.isOpen();
    });
    EXPECT_TRUE(finished);
    EXPECT_FALSE(openAfterwards);
    EXPECT_EQ(shown->caption(), u"Closed");
}

TEST_P(ToolkitConformance, ControlsCanBeReadAndSetAfterTheWindowIsClosed) {
    const auto shown = window({control(ControlKind::textBox, u"txt")});
    show(*shown, [](Hands &user) { user.type(u"abc"); });
    EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"abc");
    shown->get<TextBox>(u"txt").setText(u"xyz");
    EXPECT_EQ(shown->get<TextBox>(u"txt").text(), u"xyz");
}

TEST_P(ToolkitConformance, ClosingByTheFrameRunsNoHandler) {
    ControlDesign cancel = control(button, u"cmdCancel", u"&Cancel");
    cancel.isCancel = true;
    const auto shown = window({cancel});
    int clicks = 0;
    shown->get<CommandButton>(u"cmdCancel").onClick = [&] { ++clicks; };
    show(*shown, [](Hands &user) {
        user.closeByFrame();
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(clicks, 0);
}

TEST_P(ToolkitConformance, AWindowClosedBeforeItWasShownIsNotShown) {
    const auto shown = window({control(button, u"cmdOne")});
    shown->close();
    shown->showModal();
    EXPECT_EQ(errorNumber([&] { shown->showModal(); }), error_number::invalidCall);
}

TEST_P(ToolkitConformance, AWindowIsShownOnceOnly) {
    const auto shown = window({control(button, u"cmdAgain", u"&Again")});
    int number = 0;
    shown->get<CommandButton>(u"cmdAgain").onClick = [&] {
        number = errorNumber([&] { shown->showModal(); });
    };
    show(*shown, [](Hands &user) {
        user.click(u"cmdAgain");
        EXPECT_TRUE(user.isOpen());
    });
    EXPECT_EQ(number, error_number::invalidCall);
    EXPECT_EQ(errorNumber([&] { shown->showModal(); }), error_number::invalidCall);
}

TEST_P(ToolkitConformance, AWindowThatAHandlerShowsStandsOverItsOwn) {
    const auto outer = window({control(button, u"cmdOpen", u"&Open")}, u"frmOuter");
    std::u16string order;
    outer->get<CommandButton>(u"cmdOpen").onClick = [&] {
        const auto inner = window({control(button, u"cmdClose", u"&Close")}, u"frmInner");
        inner->get<CommandButton>(u"cmdClose").onClick = [&] { inner->close(); };
        order += u"a";
        fixture().show(*inner, [&](Hands &user) {
            order += u"b";
            user.click(u"cmdClose");
        });
        order += u"c";
    };
    show(*outer, [&](Hands &user) {
        user.click(u"cmdOpen");
        EXPECT_TRUE(user.isOpen());
        user.click(u"cmdOpen");
    });
    EXPECT_EQ(order, u"abcabc");
}

TEST_P(ToolkitConformance, TwoWindowsOfOneDesignKeepTheirControlsApart) {
    const auto first = window({control(ControlKind::textBox, u"txt")});
    const auto second = window({control(ControlKind::textBox, u"txt")});
    first->get<TextBox>(u"txt").setText(u"one");
    EXPECT_EQ(second->get<TextBox>(u"txt").text(), u"");
}

TEST_P(ToolkitConformance, AnErrorInAHandlerIsWrittenOutAndLeavesTheWindowUsable) {
    const auto shown =
        window({control(button, u"cmdFail", u"&Fail"), control(ControlKind::textBox, u"txtFail"),
                control(button, u"cmdWork", u"&Work")});
    shown->get<CommandButton>(u"cmdFail").onClick = [] { throw Error(error_number::overflow); };
    shown->get<TextBox>(u"txtFail").onChange = [] { throw std::runtime_error("broken\r\nline"); };
    int clicks = 0;
    shown->get<CommandButton>(u"cmdWork").onClick = [&] { ++clicks; };

    const std::ostringstream diagnostics;
    std::streambuf *const before = std::cerr.rdbuf(diagnostics.rdbuf());
    show(*shown, [&](Hands &user) {
        user.click(u"cmdFail");
        EXPECT_TRUE(user.isOpen());
        shown->get<TextBox>(u"txtFail").setText(u"x");
        user.click(u"cmdWork");
    });
    std::cerr.rdbuf(before);

    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(shown->get<TextBox>(u"txtFail").text(), u"x");
    const std::string written = diagnostics.str();
    EXPECT_NE(written.find("unhandled error in frmTest.cmdFail: error 6:"), std::string::npos)
        << written;
    EXPECT_NE(written.find("unhandled error in frmTest.txtFail: error 51: broken\\r\\nline"),
              std::string::npos)
        << written;
}

TEST_P(ToolkitConformance, AnOkBoxAnswersOk) {
    fixture().answerNext(message_box::ok);
    EXPECT_EQ(toolkit().showMessageBox(u"Title", u"Text & <b>more</b>", message_box::exclamation),
              message_box::ok);
    ASSERT_EQ(fixture().messageBoxes().size(), 1U);
    EXPECT_EQ(fixture().messageBoxes()[0].title, u"Title");
    EXPECT_EQ(fixture().messageBoxes()[0].text, u"Text & <b>more</b>");
}

TEST_P(ToolkitConformance, AQuestionAnswersYesOrNo) {
    fixture().answerNext(message_box::yes);
    EXPECT_EQ(toolkit().showMessageBox(u"T", u"Sure?", message_box::yesNo), message_box::yes);
    fixture().answerNext(message_box::no);
    EXPECT_EQ(toolkit().showMessageBox(u"T", u"Sure?", message_box::yesNo), message_box::no);
}

TEST_P(ToolkitConformance, EscapeAnswersOkToAnOkBoxAndNoToAQuestion) {
    fixture().answerNextByEscape();
    EXPECT_EQ(toolkit().showMessageBox(u"T", u"Done", message_box::exclamation), message_box::ok);
    fixture().answerNextByEscape();
    EXPECT_EQ(toolkit().showMessageBox(u"T", u"Sure?", message_box::yesNo), message_box::no);
}

TEST_P(ToolkitConformance, AMessageBoxThatAHandlerShowsLeavesTheWindowOpen) {
    const auto shown = window({control(button, u"cmdAsk", u"&Ask")});
    std::int32_t answer = 0;
    shown->get<CommandButton>(u"cmdAsk").onClick = [&] {
        answer = toolkit().showMessageBox(u"T", u"Sure?", message_box::yesNo);
    };
    show(*shown, [&](Hands &user) {
        fixture().answerNext(message_box::yes);
        user.click(u"cmdAsk");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(answer, message_box::yes);
        fixture().answerNextByEscape();
        user.click(u"cmdAsk");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(answer, message_box::no);
    });
}

TEST_P(ToolkitConformance, ClipboardGivesItsText) {
    fixture().setClipboardText(u"42 Ä");
    EXPECT_TRUE(toolkit().clipboard().hasText());
    EXPECT_EQ(toolkit().clipboard().text(), u"42 Ä");
    fixture().setClipboardText(u"");
    EXPECT_FALSE(toolkit().clipboard().hasText());
    EXPECT_EQ(toolkit().clipboard().text(), u"");
}

} // namespace
} // namespace kvex::test
