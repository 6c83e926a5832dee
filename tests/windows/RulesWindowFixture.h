// What the tests of the rules window share.
#pragma once

#include "tests/support/ComponentTest.h"

namespace kvex::test {

inline const std::u16string appliedToAll =
    u"Apply this Rule after the message arrives\r\nFor ALL Messages";
inline const std::u16string disabledForAll = u"This Rule is disabled\r\nFor ALL Messages";

class RulesWindow : public ComponentTest {
protected:
    void addThree(int first = 1, int step = 1) {
        for (const char *name : {"A", "B", "C"}) {
            database.addRule(name, "<ALLMESSAGES>", TestDatabase::deleteNothing, first);
            first += step;
        }
    }
    static ListView &list(User &user) { return user.get<ListView>(u"lvwRules"); }
    static std::u16string description(User &user) {
        return user.get<RichTextBox>(u"rtRuleDesc").text();
    }
    static Texts column(User &user, int subItem) {
        Texts texts;
        for (int row = 1; row <= list(user).rowCount(); ++row) {
            texts.push_back(list(user).subItem(row, subItem));
        }
        return texts;
    }
    std::vector<std::string> storedOrder() {
        return database.rows("SELECT Name || ' ' || PRIORITY FROM SMS_RULES ORDER BY PRIORITY, ID");
    }
};

} // namespace kvex::test
