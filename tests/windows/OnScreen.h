// The windows on a real toolkit with a database, for tests that play a user by key and mouse.
#pragma once

#include "tests/support/ComponentTest.h"
#include "tests/support/OnScreenStage.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kvex::test {

class OnScreenTest : public testing::Test {
protected:
    explicit OnScreenTest(std::unique_ptr<OnScreenStage> made)
        : stage(std::move(made)), play(*stage) {
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
        play.whenShown(u"frmRuleEdit", [](OnScreenUser &user) { user.press(Key::escape); });
        play.whenShown(u"frmRules", std::move(script));
        return showRules(u"");
    }
    std::int32_t playNewRule(OnScreen script) {
        play.whenShown(u"frmRuleEdit", std::move(script));
        play.whenShown(u"frmRules", [](OnScreenUser &user) { user.press(Key::escape); });
        return showRules(u"");
    }
    static std::u16string description(OnScreenUser &user) {
        return user.get<RichTextBox>(u"rtRuleDesc").text();
    }

    std::unique_ptr<OnScreenStage> stage;
    OnScreenStage &play;
    int rules = 0;
    TestDatabase database;
    UtilityRecord utility;
    TestPlatform platform{utility, stage->toolkit(), database.provider()};
    std::unique_ptr<SessionOwner> sessionOwner;
};

/// The suites that run on every real toolkit. A program links them and instantiates them with its
/// stage.
class WindowsOnScreen : public OnScreenTest, public testing::WithParamInterface<MakeStage> {
protected:
    WindowsOnScreen() : OnScreenTest(GetParam()()) {}
};

} // namespace kvex::test
