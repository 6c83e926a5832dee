#include "tests/windows/ActionDialogFixture.h"

namespace kvex::test {
namespace {

constexpr auto source = u"lvwUsersSource";
constexpr auto chosen = u"lvwUsersSelected";

class DistributionDialog : public ActionDialog {
protected:
    DistributionDialog() : ActionDialog(u"frmRuleDistribute", row::distribute) {}

    void addThree() {
        database.addUser(1, "SYSTEM");
        database.addUser(3, "Asha");
        database.addUser(7, "Ravi");
        database.addUser(9, "Meena");
    }
    static Texts ids(User &user, std::u16string_view list) {
        const auto &view = user.get<ListView>(list);
        Texts found;
        for (int row = 1; row <= view.rowCount(); ++row) {
            found.push_back(view.subItem(row, 1));
        }
        return found;
    }
    static int current(User &user, std::u16string_view list) {
        return user.get<ListView>(list).selectedRow();
    }
    static bool multiSelect(User &user, std::u16string_view list) {
        return user.get<ListView>(list).multiSelect();
    }
};

TEST_F(DistributionDialog, ShowsItsCaptionsAndTabOrder) {
    addThree();
    storeRule("<DIST>3</DIST>");
    play([](User &user) {
        EXPECT_EQ(user.window().caption(), u"Distribution List");
        EXPECT_EQ(user.get<Label>(u"Label2").caption(), u"Available users");
        EXPECT_EQ(user.get<Label>(u"Label1").caption(), u"Selected users for distribution");
        EXPECT_EQ(user.get<CommandButton>(u"cmdSelect").caption(), u"&Select ->");
        EXPECT_EQ(user.get<CommandButton>(u"cmdAll").caption(), u"&All ->");
        EXPECT_EQ(user.get<CommandButton>(u"cmdRemove").caption(), u"&Remove");
        EXPECT_EQ(user.get<ListView>(source).columnCount(), 2);
        EXPECT_EQ(user.get<ListView>(chosen).columnCount(), 2);
        EXPECT_EQ(user.focused(), source);
        EXPECT_EQ(user.tabOrder(), (Texts{source, u"cmdSelect", u"cmdAll", u"cmdRemove", chosen,
                                          u"cmdOK", u"cmdCancel"}));
        cancel(user);
    });
}

TEST_F(DistributionDialog, ANewDistributionOffersTheUsersAndSelectsOneAtATime) {
    addThree();
    play([](User &user) {
        EXPECT_EQ(user.rows(source), (Texts{u"Asha", u"Ravi", u"Meena"}));
        EXPECT_EQ(ids(user, source), (Texts{u"3", u"7", u"9"}));
        EXPECT_EQ(user.rows(chosen), Texts());
        EXPECT_EQ(current(user, source), 1);
        EXPECT_EQ(current(user, chosen), 0);
        EXPECT_FALSE(multiSelect(user, source));
        EXPECT_FALSE(multiSelect(user, chosen));
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        EXPECT_TRUE(enabled(user, u"cmdRemove"));
        EXPECT_FALSE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(DistributionDialog, AStoredDistributionIsShownInItsOrderAndOkWritesTheSameBack) {
    addThree();
    storeRule("<DIST>7;3</DIST>");
    play([](User &user) {
        EXPECT_EQ(user.rows(source), (Texts{u"Asha", u"Ravi", u"Meena"}));
        EXPECT_EQ(user.rows(chosen), (Texts{u"Ravi", u"Asha"}));
        EXPECT_EQ(ids(user, chosen), (Texts{u"7", u"3"}));
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        EXPECT_TRUE(enabled(user, u"cmdRemove"));
        EXPECT_FALSE(session().blnChanged);
        confirm(user);
    });
    EXPECT_EQ(ruleState().strDistribution, u"7;3");
    EXPECT_FALSE(session().blnChanged);
}

TEST_F(DistributionDialog, WithAStoredDistributionBothListsSelectMany) {
    addThree();
    storeRule("<DIST>7;3</DIST>");
    play([](User &user) {
        EXPECT_EQ(current(user, source), 1);
        EXPECT_EQ(current(user, chosen), 1);
        EXPECT_TRUE(multiSelect(user, source));
        EXPECT_TRUE(multiSelect(user, chosen));
        cancel(user);
    });
}

TEST_F(DistributionDialog, TheBuiltInUserIsLeftOutByItsExactName) {
    database.addUser(1, "SYSTEM");
    database.addUser(2, "System");
    database.addUser(3, "SYSTEM ");
    play([](User &user) {
        EXPECT_EQ(user.rows(source), (Texts{u"System", u"SYSTEM "}));
        cancel(user);
    });
}

TEST_F(DistributionDialog, ASingleUserIsOffered) {
    database.addUser(4, "Asha");
    play([](User &user) {
        EXPECT_EQ(user.rows(source), Texts{u"Asha"});
        EXPECT_EQ(current(user, source), 1);
        cancel(user);
    });
}

TEST_F(DistributionDialog, AUserWithoutNameIsNotListed) {
    addThree();
    database.execute("INSERT INTO SMS_USERS (ID, NAME) VALUES (4, NULL), (5, '')");
    play([](User &user) {
        EXPECT_EQ(user.rows(source), (Texts{u"Asha", u"", u"Ravi", u"Meena"}));
        cancel(user);
    });
}

TEST_F(DistributionDialog, WithTheBuiltInUserAloneTheSelectedUsersAreNotLoaded) {
    database.addUser(1, "SYSTEM");
    storeRule("<DIST>1</DIST>");
    play([](User &user) {
        EXPECT_EQ(user.rows(source), Texts());
        EXPECT_EQ(user.rows(chosen), Texts());
        EXPECT_FALSE(multiSelect(user, source));
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        user.click(u"cmdSelect");
        EXPECT_EQ(user.rows(chosen), Texts());
        EXPECT_TRUE(session().blnChanged);
        cancel(user);
    });
    expectLog({u"Sub: Form_Load, Module: frmRuleDistribute"});
    EXPECT_EQ(logged.at(0).number, error_number::indexOutOfBounds);
    EXPECT_EQ(ruleState().strDistribution, u"1");
}

TEST_F(DistributionDialog, WithoutAnyUserTheLoadFailsInTheSameWay) {
    play([](User &user) {
        EXPECT_EQ(user.rows(source), Texts());
        user.click(u"cmdAll");
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        user.click(u"cmdRemove");
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        EXPECT_FALSE(enabled(user, u"cmdRemove"));
        cancel(user);
    });
    expectLog({u"Sub: Form_Load, Module: frmRuleDistribute"});
    EXPECT_EQ(logged.at(0).number, error_number::indexOutOfBounds);
}

TEST_F(DistributionDialog, SelectCopiesTheCurrentUserBehindTheOthers) {
    addThree();
    play([](User &user) {
        user.clickRow(source, 2);
        EXPECT_FALSE(session().blnChanged);
        user.click(u"cmdSelect");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(source), (Texts{u"Asha", u"Ravi", u"Meena"}));
        EXPECT_EQ(user.rows(chosen), Texts{u"Ravi"});
        EXPECT_EQ(current(user, chosen), 0);
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        user.clickRow(source, 1);
        user.click(u"cmdSelect");
        EXPECT_EQ(ids(user, chosen), (Texts{u"7", u"3"}));
        confirm(user);
    });
    EXPECT_EQ(ruleState().strDistribution, u"7;3");
}

TEST_F(DistributionDialog, OfSeveralSelectedUsersTheCurrentOneIsTaken) {
    addThree();
    storeRule("<DIST>3</DIST>");
    play([](User &user) {
        auto &users = user.get<ListView>(source);
        users.select(3);
        users.select(2);
        EXPECT_TRUE(users.selected(1) && users.selected(2) && users.selected(3));
        user.click(u"cmdSelect");
        EXPECT_EQ(user.rows(chosen), (Texts{u"Asha", u"Ravi"}));
        cancel(user);
    });
}

TEST_F(DistributionDialog, ADoubleClickSelects) {
    addThree();
    play([](User &user) {
        user.doubleClickRow(source, 3);
        EXPECT_EQ(user.rows(chosen), Texts{u"Meena"});
        EXPECT_TRUE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(DistributionDialog, ADoubleClickBesideTheUsersSelectsNone) {
    addThree();
    play([](User &user) {
        EXPECT_EQ(user.get<ListView>(source).selectedRow(), 1);
        user.doubleClickBesideRows(source);
        EXPECT_EQ(user.rows(chosen), Texts());
        EXPECT_FALSE(session().blnChanged);
        cancel(user);
    });
}

TEST_F(DistributionDialog, AUserSelectedTwiceIsListedOnceAndTheRuleCountsAsChanged) {
    addThree();
    storeRule("<DIST>3</DIST>");
    play([](User &user) {
        user.click(u"cmdSelect");
        EXPECT_EQ(user.rows(chosen), Texts{u"Asha"});
        EXPECT_TRUE(session().blnChanged);
        confirm(user);
    });
    EXPECT_EQ(ruleState().strDistribution, u"3");
}

TEST_F(DistributionDialog, NamesakesAreSelectedTogetherByAllAlone) {
    database.addUser(3, "Asha");
    database.addUser(4, "ASHA");
    database.addUser(5, "Asha B");
    play([](User &user) {
        for (const int row : {1, 2, 3}) {
            user.clickRow(source, row);
            user.click(u"cmdSelect");
        }
        EXPECT_EQ(ids(user, chosen), (Texts{u"3", u"5"}));
        user.click(u"cmdAll");
        EXPECT_EQ(ids(user, chosen), (Texts{u"3", u"4", u"5"}));
        confirm(user);
    });
    EXPECT_EQ(ruleState().strDistribution, u"3;4;5");
}

TEST_F(DistributionDialog, AllReplacesTheSelectionInTheOrderOffered) {
    addThree();
    storeRule("<DIST>9;77;3</DIST>");
    play([](User &user) {
        user.click(u"cmdAll");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(chosen), (Texts{u"Asha", u"Ravi", u"Meena"}));
        EXPECT_EQ(current(user, chosen), 0);
        confirm(user);
    });
    EXPECT_EQ(ruleState().strDistribution, u"3;7;9");
}

TEST_F(DistributionDialog, RemoveTakesTheCurrentUserAndThenTheNext) {
    addThree();
    storeRule("<DIST>3;7;9</DIST>");
    play([](User &user) {
        user.clickRow(chosen, 2);
        EXPECT_FALSE(session().blnChanged);
        user.click(u"cmdRemove");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(ids(user, chosen), (Texts{u"3", u"9"}));
        EXPECT_EQ(current(user, chosen), 2);
        user.click(u"cmdRemove");
        EXPECT_EQ(ids(user, chosen), Texts{u"3"});
        user.click(u"cmdRemove");
        EXPECT_EQ(ids(user, chosen), Texts{u"3"});
        confirm(user);
    });
    EXPECT_EQ(ruleState().strDistribution, u"3");
}

TEST_F(DistributionDialog, RemoveWithoutACurrentUserOnlySetsTheChangeFlag) {
    addThree();
    play([](User &user) {
        user.click(u"cmdSelect");
        session().blnChanged = false;
        user.click(u"cmdRemove");
        EXPECT_TRUE(session().blnChanged);
        EXPECT_EQ(user.rows(chosen), Texts{u"Asha"});
        EXPECT_TRUE(enabled(user, u"cmdOK"));
        cancel(user);
    });
}

TEST_F(DistributionDialog, WithoutSelectedUsersOnlyCancelLeaves) {
    addThree();
    storeRule("<DIST>3</DIST>");
    play([](User &user) {
        user.click(u"cmdRemove");
        EXPECT_EQ(user.rows(chosen), Texts());
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        EXPECT_FALSE(enabled(user, u"cmdRemove"));
        user.focusOn(source);
        user.press(Key::enter);
        EXPECT_TRUE(user.isOpen());
        user.press(Key::escape);
    });
    EXPECT_EQ(ruleState().strDistribution, u"3");
    EXPECT_TRUE(session().blnChanged);
}

TEST_F(DistributionDialog, AUserThatIsGoneKeepsItsIdUnderAnEmptyName) {
    addThree();
    database.execute("INSERT INTO SMS_USERS (ID, NAME, DELETED) VALUES (8, 'Gone', 1)");
    storeRule("<DIST>77;3;8</DIST>");
    play([](User &user) {
        EXPECT_EQ(user.rows(chosen), (Texts{u"", u"Asha", u""}));
        confirm(user);
    });
    EXPECT_EQ(ruleState().strDistribution, u"77;3;8");
}

TEST_F(DistributionDialog, WhatIsNoNumberEndsTheLoadWhereItStands) {
    addThree();
    beforeDialog = [] { ruleState().strDistribution = u"7;x;3"; };
    play([](User &user) {
        EXPECT_EQ(user.rows(chosen), Texts{u"Ravi"});
        EXPECT_FALSE(enabled(user, u"cmdOK"));
        EXPECT_EQ(current(user, chosen), 0);
        EXPECT_TRUE(multiSelect(user, source));
        cancel(user);
    });
    expectLog({u"Sub: Form_Load, Module: frmRuleDistribute",
               u"Sub: BuildDistributionList, Module: General"});
    EXPECT_EQ(logged.at(0).number, error_number::typeMismatch);
    EXPECT_EQ(ruleState().strDistribution, u"7;x;3");
}

TEST_F(DistributionDialog, AnEmptyIdEndsTheLoadToo) {
    addThree();
    beforeDialog = [] { ruleState().strDistribution = u"7;;3"; };
    play([](User &user) {
        EXPECT_EQ(user.rows(chosen), Texts{u"Ravi"});
        cancel(user);
    });
    expectLog({u"Sub: Form_Load, Module: frmRuleDistribute",
               u"Sub: BuildDistributionList, Module: General"});
}

TEST_F(DistributionDialog, IdsAreWrittenBackInPlainDecimals) {
    addThree();
    beforeDialog = [] { ruleState().strDistribution = u" 3 ;007"; };
    play([](User &user) {
        EXPECT_EQ(user.rows(chosen), (Texts{u"Asha", u"Ravi"}));
        confirm(user);
    });
    EXPECT_EQ(ruleState().strDistribution, u"3;7");
}

TEST_F(DistributionDialog, CancelEscapeAndTheFrameWriteNothing) {
    addThree();
    storeRule("<DIST>3</DIST>");
    const std::vector<Script> ways{[](User &user) { user.click(u"cmdCancel"); },
                                   [](User &user) { user.press(Key::escape); },
                                   [](User &user) { user.closeByFrame(); }};
    for (const Script &leave : ways) {
        playAgain([&](User &user) {
            user.click(u"cmdAll");
            leave(user);
            EXPECT_FALSE(user.isOpen());
        });
        EXPECT_EQ(ruleState().strDistribution, u"3");
    }
}

TEST_F(DistributionDialog, AccessKeysSelectAllAndRemove) {
    addThree();
    play([](User &user) {
        user.pressAccessKey(u'S');
        EXPECT_EQ(user.rows(chosen), Texts{u"Asha"});
        user.pressAccessKey(u'A');
        EXPECT_EQ(user.get<ListView>(chosen).rowCount(), 3);
        user.focusOn(chosen);
        user.press(Key::end);
        user.pressAccessKey(u'R');
        EXPECT_EQ(user.rows(chosen), (Texts{u"Asha", u"Ravi"}));
        user.pressAccessKey(u'O');
        EXPECT_FALSE(user.isOpen());
    });
    EXPECT_EQ(ruleState().strDistribution, u"3;7");
}

TEST_F(DistributionDialog, TheEditorsDescriptionFollows) {
    addThree();
    play(
        [](User &user) {
            user.click(u"cmdAll");
            confirm(user);
        },
        [](User &user) {
            EXPECT_EQ(description(user), u"Apply this Rule after the message arrives\r\n"
                                         u"Then distribute the message to Asha and Ravi and Meena");
            cancel(user);
        });
}

TEST_F(DistributionDialog, AnEditedDistributionIsSavedAmongTheOtherActions) {
    addThree();
    storeRule("<DIST>3</DIST><REPLY>Hi;2</REPLY><DELETE>NO</DELETE>"
              "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
    play(
        [](User &user) {
            user.doubleClickRow(source, 3);
            confirm(user);
        },
        save);
    EXPECT_EQ(savedAction(), "<DIST>3;9</DIST><REPLY>Hi;2</REPLY><DELETE>NO</DELETE>"
                             "<IGNOREFURTHERRULES>YES</IGNOREFURTHERRULES>");
}

TEST_F(DistributionDialog, FiveThousandUsersAreCopiedAndRemoved) {
    database.execute("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                     "5000) INSERT INTO SMS_USERS (ID, NAME) SELECT i, 'User ' || i FROM n");
    play([](User &user) {
        user.clickRow(source, 5000);
        user.click(u"cmdSelect");
        EXPECT_EQ(user.rows(chosen), Texts{u"User 5000"});
        user.click(u"cmdAll");
        EXPECT_EQ(user.get<ListView>(chosen).rowCount(), 5000);
        user.clickRow(chosen, 1);
        user.click(u"cmdRemove");
        EXPECT_EQ(user.get<ListView>(chosen).text(1), u"User 2");
        confirm(user);
    });
    EXPECT_TRUE(ruleState().strDistribution.starts_with(u"2;3;"));
    EXPECT_TRUE(ruleState().strDistribution.ends_with(u";4999;5000"));
    beforeDialog = [distribution = ruleState().strDistribution] {
        ruleState().strDistribution = distribution;
    };
    playAgain([](User &user) {
        EXPECT_EQ(user.get<ListView>(chosen).text(4999), u"User 5000");
        cancel(user);
    });
}

} // namespace
} // namespace kvex::test
