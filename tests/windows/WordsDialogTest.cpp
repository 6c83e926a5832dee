#include "tests/support/RaisedError.h"
#include "tests/windows/ConditionDialogFixture.h"

namespace kvex::test {
namespace {

constexpr auto list = u"lvwWords";
const std::u16string heading = u"Where the message contains the words ";

class WordsDialog : public ConditionDialog {
protected:
    static std::u16string box(User &user) { return user.get<TextBox>(u"txtWord").text(); }
    static std::int16_t command(User &user) {
        return user.get<CheckBox>(u"chkWordAsCommand").value();
    }
    static void add(User &user, std::u16string_view text) {
        user.type(text);
        user.press(Key::enter);
    }
};

TEST_F(WordsDialog, BeginsWithTheWordBoxAndWaitingButtons) {
    playDialog(words, [](User &user) {
        EXPECT_EQ(user.window().caption(), u"Select Words");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(), u"&Words");
        EXPECT_EQ(user.get<Label>(u"Label4").caption(),
                  u"Type specific words or a phrase and click Add");
        EXPECT_EQ(user.focused(), u"txtWord");
        EXPECT_EQ(user.get<ListView>(list).columnCount(), 1);
        EXPECT_EQ(user.rows(list), Texts{heading});
        EXPECT_EQ(enabledButtons(user), noButtons);
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        EXPECT_EQ(user.tabOrder(), (Texts{u"chkWordAsCommand", u"cmdCancel", u"txtWord", list}));
        user.press(Key::escape);
    });
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(WordsDialog, TabWalksInTheOrderOfTheDesign) {
    ruleState().strWords = u"STOP";
    playDialog(words, [](User &user) {
        user.type(u"a");
        EXPECT_EQ(user.tabOrder(),
                  (Texts{u"chkWordAsCommand", u"cmdClear", u"cmdOptions", u"cmdRemove", u"cmdAdd",
                         u"cmdOK", u"cmdCancel", u"txtWord", list}));
        user.press(Key::escape);
    });
}

TEST_F(WordsDialog, StoredWordsAreShownWithTheirCommandSetting) {
    ruleState().strWords = u"STOP;;price list";
    for (const std::int16_t asCommand : {std::int16_t{1}, std::int16_t{0}}) {
        ruleState().intAsCommand = asCommand;
        playDialog(words, [&](User &user) {
            EXPECT_EQ(user.rows(list), (Texts{heading, u"    STOP", u"    ", u"    price list"}));
            EXPECT_EQ(command(user), asCommand);
            EXPECT_EQ(enabledButtons(user), allButtons);
            user.click(u"cmdOK");
        });
        EXPECT_EQ(ruleState().strWords, u"STOP;;price list");
        EXPECT_EQ(ruleState().intAsCommand, asCommand);
    }
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(WordsDialog, WithoutWordsTheBoxIsUntickedWhateverTheRuleHeld) {
    ruleState().intAsCommand = 1;
    playDialog(words, [](User &user) {
        EXPECT_EQ(command(user), 0);
        EXPECT_EQ(ruleState().intAsCommand, 1);
        user.press(Key::escape);
    });
    EXPECT_EQ(ruleState().intAsCommand, 1);
    playDialog(words, [](User &user) {
        add(user, u"STOP");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().intAsCommand, 0);
}

TEST_F(WordsDialog, AddIsEnabledWhileTheBoxHoldsMoreThanBlanks) {
    playDialog(words, [](User &user) {
        user.type(u"  ");
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        user.type(u"x");
        EXPECT_TRUE(enabled(user, u"cmdAdd"));
        user.press(Key::backspace);
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        user.press(Key::escape);
    });
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(WordsDialog, EnterAddsTheTypedWordAndAwaitsTheNext) {
    playDialog(words, [](User &user) {
        add(user, u"STOP");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    STOP"}));
        EXPECT_EQ(box(user), u"");
        EXPECT_EQ(user.focused(), u"txtWord");
        EXPECT_EQ(enabledButtons(user), allButtons);
        EXPECT_FALSE(enabled(user, u"cmdAdd"));
        user.type(u"halt");
        user.click(u"cmdAdd");
        EXPECT_EQ(user.focused(), u"txtWord");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"STOP;halt");
}

TEST_F(WordsDialog, BlanksOnlyClearTheBoxAndEnableTheButtons) {
    playDialog(words, [](User &user) {
        user.type(u"  ");
        runClick(user, u"cmdAdd");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(box(user), u"");
        EXPECT_EQ(user.rows(list), Texts{heading});
        EXPECT_EQ(enabledButtons(user), allButtons);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"");
}

TEST_F(WordsDialog, BlanksAroundAWordAreShownAndNotStored) {
    playDialog(words, [](User &user) {
        add(user, u"  STOP  ");
        EXPECT_EQ(user.rows(list), (Texts{heading, u"      STOP  "}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"STOP");
}

TEST_F(WordsDialog, APhraseStaysOneEntryWithItsBlanks) {
    playDialog(words, [](User &user) {
        add(user, u"price  list");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"price  list");
}

TEST_F(WordsDialog, TheSameWordTwiceIsKeptTwiceInItsCase) {
    playDialog(words, [](User &user) {
        for (const char16_t *word : {u"Stop", u"Stop", u"STOP"}) {
            add(user, word);
        }
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"Stop;Stop;STOP");
}

TEST_F(WordsDialog, ATypedSeparatorStaysInItsRowAndComesBackAsTwoWords) {
    playDialog(words, [](User &user) {
        add(user, u"a;b");
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    a;b"}));
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"a;b");
    playDialog(words, [](User &user) {
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    a", u"    b"}));
        user.press(Key::escape);
    });
}

TEST_F(WordsDialog, AWordThatEndsInASeparatorLosesItAtTheEndOfTheListOnly) {
    playDialog(words, [](User &user) {
        add(user, u"a;");
        add(user, u"b;");
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"a;;b;");
}

TEST_F(WordsDialog, WordsOfAnyScriptAreKept) {
    playDialog(words, [](User &user) {
        for (const char16_t *word : {u"Asha's", u"मूल्य सूची", u"\U0001F4F1", u"<ALL>"}) {
            add(user, word);
        }
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, u"Asha's;मूल्य सूची;\U0001F4F1;<ALL>");
}

TEST_F(WordsDialog, TheBoxTakesAHundredAndFiftyCharacters) {
    playDialog(words, [this](User &user) {
        user.type(std::u16string(160, u'w'));
        EXPECT_EQ(box(user).size(), 150U);
        user.press(Key::enter);
        paste(user, std::u16string(149, u'p') + u"\U0001F4F1");
        EXPECT_EQ(box(user), std::u16string(149, u'p'));
        user.press(Key::enter);
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().strWords, std::u16string(150, u'w') + u";" + std::u16string(149, u'p'));
}

TEST_F(WordsDialog, TheCheckBoxCountsAtOnceAndIsNoChange) {
    playDialog(words, [](User &user) {
        user.click(u"chkWordAsCommand");
        EXPECT_EQ(ruleState().intAsCommand, 1);
        EXPECT_FALSE(session().blnChanged);
        user.click(u"chkWordAsCommand");
        EXPECT_EQ(ruleState().intAsCommand, 0);
        user.press(Key::space);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(ruleState().intAsCommand, 1);
    EXPECT_EQ(ruleState().strWords, u"");
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(WordsDialog, OkAndOptionsStoreTheCheckBox) {
    ruleState().strWords = u"STOP";
    playDialog(words, [this](User &user) {
        user.click(u"chkWordAsCommand");
        ruleState().intAsCommand = 0;
        whenShown(u"frmRuleOptions", [](User &options) {
            EXPECT_EQ(ruleState().intAsCommand, 1);
            options.press(Key::escape);
        });
        user.click(u"cmdOptions");
        ruleState().intAsCommand = 0;
        user.click(u"cmdOK");
    });
    EXPECT_EQ(ruleState().intAsCommand, 1);
}

TEST_F(WordsDialog, ACommandLosesTheAllModifierOnceItsOptionsAreOpened) {
    ruleState().strWords = u"STOP;HALT";
    ruleState().intWordsAll = 1;
    playDialog(words, [this](User &user) {
        user.click(u"chkWordAsCommand");
        EXPECT_EQ(ruleState().intWordsAll, 1);
        whenShown(u"frmRuleOptions", [](User &options) {
            EXPECT_EQ(ruleState().intWordsAll, 0);
            options.press(Key::escape);
        });
        user.click(u"cmdOptions");
        user.press(Key::escape);
    });
    EXPECT_EQ(ruleState().intWordsAll, 0);
}

TEST_F(WordsDialog, AnUnknownCommandValueOpensNoWindow) {
    openSession();
    ruleState().strWords = u"STOP";
    ruleState().intAsCommand = 2;
    EXPECT_EQ(errorNumber([] { ruleConditions()[row::containsWords - 1].showDialog(); }),
              error_number::invalidPropertyValue);
}

TEST_F(WordsDialog, AccessKeysReachEveryControlThatHasOne) {
    ruleState().strWords = u"a;b";
    utility.answers = {message_box::yes};
    playDialog(words, [this](User &user) {
        user.type(u"c");
        user.pressAccessKey(u'A');
        user.clickRow(list, 2);
        user.pressAccessKey(u'R');
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    b", u"    c"}));
        user.pressAccessKey(u'W');
        EXPECT_EQ(user.focused(), u"txtWord");
        whenShown(u"frmRuleOptions", [](User &options) { options.pressAccessKey(u'C'); });
        user.pressAccessKey(u'P');
        user.pressAccessKey(u'L');
        EXPECT_EQ(user.rows(list), Texts{heading});
        user.pressAccessKey(u'C');
    });
    EXPECT_EQ(ruleState().strWords, u"b;c");
    playDialog(words, [](User &user) { user.pressAccessKey(u'O'); });
    EXPECT_EQ(ruleState().strWords, u"b;c");
    expectMessages({clearQuestion});
}

TEST_F(WordsDialog, AHintSaysWhatTheServerReadsOfTheTypedWordAndTheList) {
    utility.answers = {message_box::yes};
    playDialog(words, [this](User &user) {
        EXPECT_EQ(user.description(u"txtWord"), u"");
        user.type(u"a");
        EXPECT_EQ(user.description(u"txtWord"), u"");
        user.type(u";b");
        const std::u16string twoWords = u"The server reads \"a;b\" as \"a\" and \"b\".";
        EXPECT_EQ(user.description(u"txtWord"), twoWords);
        user.press(Key::enter);
        EXPECT_EQ(user.rows(list), (Texts{heading, u"    a;b"}));
        EXPECT_EQ(user.description(u"txtWord"), twoWords);
        user.clickRow(list, 2);
        user.click(u"cmdRemove");
        EXPECT_EQ(user.description(u"txtWord"), u"");
        user.focusOn(u"txtWord");
        paste(user, u"a</WORD>");
        EXPECT_EQ(user.description(u"txtWord"), u"The server reads \"a</WORD>\" as \"a\".");
        user.press(Key::enter);
        user.click(u"cmdClear");
        EXPECT_EQ(user.description(u"txtWord"), u"");
        user.press(Key::escape);
    });
    expectMessages({clearQuestion});
}

TEST_F(WordsDialog, AHintStandsBesideLoadedWords) {
    ruleState().strWords = u"STOP;<b>";
    playDialog(words, [](User &user) {
        EXPECT_EQ(user.description(u"txtWord"), u"The server reads these words as they stand.");
        user.press(Key::escape);
    });
}

TEST_F(WordsDialog, AHintKnowsTheOptionsOfTheWords) {
    ruleState().strWords = u"<ALL>;b";
    playDialog(words, [this](User &user) {
        EXPECT_EQ(user.description(u"txtWord"),
                  u"The server reads \"<ALL>\" as an option of the words.");
        user.click(u"chkWordAsCommand");
        EXPECT_EQ(user.description(u"txtWord"), u"The server reads these words as they stand.");
        user.click(u"chkWordAsCommand");
        whenShown(u"frmRuleOptions", [](User &options) {
            options.click(u"opgAllAnyModifier(0)");
            options.click(u"cmdOK");
        });
        user.click(u"cmdOptions");
        EXPECT_EQ(user.description(u"txtWord"), u"The server reads these words as they stand.");
        user.press(Key::escape);
    });
}

} // namespace
} // namespace kvex::test
