// The windows on a real toolkit with a database, for tests that play a user by key and mouse.
#pragma once

#include "adapters/qt/QtToolkit.h"
#include "tests/support/ComponentTest.h"
#include "tests/support/QtPlay.h"

namespace kvex::test {

using OnScreen = QtPlay::Script;

class WindowsOnScreen : public testing::Test {
protected:
    WindowsOnScreen() {
        utility.connectionString = database.connectionString();
        session().blnChanged = false;
        ruleState() = RuleState();
        for (const char *name : {"A", "B", "C"}) {
            database.addRule(name, "<ALLMESSAGES>", TestDatabase::deleteNothing, ++rules);
        }
    }
    void TearDown() override {
        EXPECT_EQ(play.problems(), std::vector<std::string>());
        EXPECT_EQ(play.pendingScripts(), 0U);
        EXPECT_EQ(utility.logTexts(), Texts());
        if (sessionOwner) {
            sessionOwner->release();
        }
    }

    std::int32_t showRules(const std::u16string &ruleId) {
        sessionOwner = std::make_unique<SessionOwner>(platform);
        return sessionOwner->ShowRules(u"1", ruleId);
    }
    std::int32_t playRules(OnScreen script) {
        play.whenShown(u"frmRuleEdit", [](QtUser &user) { user.press(Key::escape); });
        play.whenShown(u"frmRules", std::move(script));
        return showRules(u"");
    }
    std::int32_t playNewRule(OnScreen script) {
        play.whenShown(u"frmRuleEdit", std::move(script));
        play.whenShown(u"frmRules", [](QtUser &user) { user.press(Key::escape); });
        return showRules(u"");
    }
    static std::u16string description(QtUser &user) {
        return user.get<RichTextBox>(u"rtRuleDesc").text();
    }

    int rules = 0;
    TestDatabase database;
    UtilityRecord utility;
    QtPlay play;
    qt::QtToolkit toolkit;
    TestPlatform platform{utility, toolkit, database.provider()};
    std::unique_ptr<SessionOwner> sessionOwner;
};

} // namespace kvex::test
