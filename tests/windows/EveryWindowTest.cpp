// What holds in every window.
#include "tests/windows/EveryWindow.h"
#include "tests/windows/WindowCheck.h"

#include <QApplication>

namespace kvex::test {
namespace {

TEST_F(EveryWindow, EachControlIsReachedByTabInItsPlaceAndSaysWhatItIs) {
    std::map<std::u16string, Check> checks;
    for (const auto &order : tabOrders()) {
        checks[order.first] = [&order](QtUser &user) { expectAccessible(user, order.second); };
    }
    walk(checks);
}

/// The captions are fixed. When two controls share a key, it goes to each in turn.
TEST_F(EveryWindow, AccessKeysAreSharedOnlyWhereTheCaptionsDemandIt) {
    const std::map<std::u16string, SharedKeys> demanded{
        {u"frmRuleEdit", {{u'C', {u"cmdCancel", u"lvwRuleConditions"}}}},
        {u"frmRuleAccount", {{u'A', {u"cmdAdd", u"lvwAccountSource"}}}},
        {u"frmRuleAlert", {{u'R', {u"cmdRemove", u"txtMobileNo"}}}},
    };
    std::map<std::u16string, Check> checks;
    for (const auto &[window, tabOrder] : tabOrders()) {
        const auto found = demanded.find(window);
        checks[window] = [shared = found == demanded.end() ? SharedKeys() : found->second](
                             QtUser &user) { EXPECT_EQ(sharedAccessKeys(user), shared); };
    }
    walk(checks);
}

TEST_F(EveryWindow, NoTextIsCutWhateverTheFontSize) {
    const QFont usual = QApplication::font();
    for (const int points : {9, 16}) {
        SCOPED_TRACE(points);
        QFont font = usual;
        font.setPointSize(points);
        QApplication::setFont(font);
        walk([](QtUser &user) { expectNothingCut(user); });
    }
    QApplication::setFont(usual);
}

} // namespace
} // namespace kvex::test
