// A server goes away in the middle of what a user does: he is told and keeps his input, nothing
// is claimed to be stored that is not, and a new session works once the server is back.
#include "tests/editors/Editors.h"
#include "tests/faults/ServerUnderTest.h"

#include <tuple>

namespace kvex::test {
namespace {

using recordset::connectionLost;
using Loss = std::tuple<ServerKindUnderTest, WayToGo>;

constexpr std::u16string_view notStored = u"was not stored, as far as is known. The ";

} // namespace

/// That a call ends is all that is tested of time: a driver that is not told to give up waits for
/// a quarter of an hour, far beyond the limit of this test program.
class GoneServer : public TwoEditors, public testing::WithParamInterface<Loss> {
protected:
    GoneServer() : TwoEditors(std::get<ServerKindUnderTest>(GetParam()).database) {
        for (Editor *editor : {&mine, &theirs}) {
            std::u16string &text = editor->utility.connectionString;
            text = (way_.relayed ? place_.relayed(text) : text) + u";Connect Timeout=2";
        }
    }
    /// Also after a test that failed in the middle.
    ~GoneServer() override { comeBack(); }

    void goAway() {
        isGone_ = true;
        way_.go(place_);
    }
    void goAwayAfter(int calls) {
        watched.interruptAfter(calls, [this] { goAway(); });
    }
    void comeBack() {
        if (isGone_) {
            isGone_ = false;
            way_.comeBack(place_);
        }
    }

private:
    const WayToGo &way_ = std::get<WayToGo>(GetParam());
    ServerUnderTest place_{std::get<ServerKindUnderTest>(GetParam()).server()};
    bool isGone_ = false;
};

TEST_P(GoneServer, BeforeOrWhileTheRulesAreReadEndsTheOpening) {
    addThree();
    // The connection, the first query and one in the middle.
    for (const int calls : {0, 1, 3}) {
        goAwayAfter(calls);
        EXPECT_EQ(mine.showRules(), 0);
        mine.expectTold({openingFailed}, connectionLost, u"The ");
        comeBack();
        mine.inRulesWindow([](User &user) {
            EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
            user.click(u"cmdCancel");
        });
    }
}

TEST_P(GoneServer, AtATickLeavesTheRuleAndTheWindow) {
    addThree();
    mine.inRulesWindow([this](User &user) {
        goAway();
        user.tickRow(u"lvwRules", 2);
        mine.expectLeftHandler(connectionLost, u"Nothing was stored. The ");
        comeBack();
        // What is lost stays lost for this session.
        user.tickRow(u"lvwRules", 3);
        mine.expectLeftHandler(connectionLost, u"Nothing was stored. The ");
        user.clickRow(u"lvwRules", 1);
        EXPECT_EQ(ruleState().strRuleName, u"A");
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"ACTIVE", u"B") + stored(u"ACTIVE", u"C"), u"11");
    mine.inRulesWindow([](User &user) {
        user.tickRow(u"lvwRules", 2);
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(stored(u"ACTIVE", u"B"), u"0");
}

TEST_P(GoneServer, AtASaveLeavesTheEditorWithItsInput) {
    const std::u16string id = addRule(u"A");
    for (const std::u16string &rule : {id, std::u16string()}) {
        const auto save = [&](User &user) {
            if (rule.empty()) {
                completeRule(user);
            }
            rename(user, rule.empty() ? u"New" : u"Changed");
            user.click(u"cmdOK");
        };
        mine.inEditor(rule, [&](User &user) {
            const std::u16string_view name = rule.empty() ? u"New" : u"Changed";
            goAwayAfter(0);
            save(user);
            mine.expectTold({saveFailed}, connectionLost, notStored);
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(typedName(user), name);
            comeBack();
            user.click(u"cmdOK");
            mine.expectTold({saveFailed}, connectionLost, notStored);
            EXPECT_TRUE(user.isOpen());
            EXPECT_EQ(typedName(user), name);
            user.click(u"cmdCancel");
        });
        EXPECT_EQ(idOf(u"Changed"), rule.empty() ? id : u"NONE");
        EXPECT_EQ(ruleCount(), u"1");
        mine.inEditor(rule, [&](User &user) {
            save(user);
            EXPECT_FALSE(user.isOpen());
        });
    }
    EXPECT_EQ(idOf(u"Changed"), id);
    EXPECT_EQ(ruleCount(), u"2");
}

TEST_P(GoneServer, BetweenTheWriteAndTheReadingOfASaveIsToldAsStored) {
    const std::u16string id = addRule(u"A");
    mine.inEditor(id, [&](User &user) {
        rename(user, u"Changed");
        goAwayAfter(1);
        user.click(u"cmdOK");
        mine.expectTold({saveFailed}, connectionLost,
                        u"What was stored before stays stored, but record ID " + id +
                            u" could not be read again. ");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(typedName(user), u"Changed");
        comeBack();
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(idOf(u"Changed"), id);
}

TEST_P(GoneServer, InTheMiddleOfAnOrderLeavesTheFirstPartAndTheWindow) {
    addThree(10, 10);
    mine.inRulesWindow([this](User &user) {
        goAwayAfter(1);
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, connectionLost,
                        u"What was stored before this error stays stored; nothing after it was.");
        EXPECT_TRUE(user.isOpen());
        EXPECT_EQ(user.rows(u"lvwRules"), (Texts{u"A", u"B", u"C"}));
        comeBack();
        user.click(u"cmdOK");
        mine.expectTold({orderFailed}, connectionLost, notStored);
        EXPECT_TRUE(user.isOpen());
        user.click(u"cmdCancel");
    });
    EXPECT_EQ(priorities(), (Texts{u"1", u"20", u"30"}));
    mine.inRulesWindow([](User &user) { user.click(u"cmdOK"); });
    EXPECT_EQ(priorities(), (Texts{u"1", u"2", u"3"}));
}

INSTANTIATE_TEST_SUITE_P(Faults, GoneServer,
                         testing::Combine(testing::ValuesIn(serversUnderTest()),
                                          testing::ValuesIn(waysToGo())),
                         [](const auto &loss) {
                             return std::get<ServerKindUnderTest>(loss.param).database.name +
                                    std::get<WayToGo>(loss.param).name;
                         });

} // namespace kvex::test
