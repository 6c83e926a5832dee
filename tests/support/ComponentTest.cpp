#include "tests/support/ComponentTest.h"

#include "adapters/headless/LooseTextBox.h"
#include "adapters/recordset/ClientConnection.h"
#include "adapters/recordset/ClientRecordset.h"
#include "platform/Text.h"

namespace kvex::test {

std::unique_ptr<Utility> TestPlatform::createUtility() {
    if (record_.creationFails) {
        throw Error(error_number::cannotCreateObject);
    }
    return std::make_unique<TestUtility>(record_);
}

std::unique_ptr<Connection> TestPlatform::createConnection() {
    return std::make_unique<recordset::ClientConnection>(
        std::vector<recordset::Provider>{provider_});
}

std::unique_ptr<Recordset> TestPlatform::createRecordset() {
    return std::make_unique<recordset::ClientRecordset>();
}

std::unique_ptr<AddressBook> TestPlatform::createAddressBook() {
    return std::make_unique<TestAddressBook>(addressBook);
}

std::unique_ptr<RichTextBox> TestPlatform::createTextBox() {
    return headless::createRichTextBox();
}

ComponentTest::ComponentTest(const DatabaseKind &kind) : database(kind) {
    utility.connectionString = database.connectionString();
    session().blnChanged = false;
    session().strUserID.clear();
    ruleState() = RuleState();
}

ComponentTest::~ComponentTest() {
    closeSession();
}

void ComponentTest::TearDown() {
    EXPECT_EQ(toolkit.problems(), std::vector<std::string>());
    EXPECT_EQ(toolkit.pendingScripts(), 0U);
    EXPECT_EQ(toolkit.unhandledErrors().size(), expectedUnhandledErrors);
    expectLog({});
    expectMessages({});
    expectReports({});
}

RuleUI &ComponentTest::createRuleUI() {
    ruleUI = std::make_unique<RuleUI>(platform);
    return *ruleUI;
}

void ComponentTest::openSession() {
    ASSERT_TRUE(createRuleUI().OpenRules());
}

void ComponentTest::closeSession() {
    if (ruleUI) {
        ruleUI->release();
        ruleUI.reset();
    }
}

std::int32_t ComponentTest::showRules(const std::u16string &ruleId) {
    if (!ruleUI) {
        createRuleUI();
    }
    return ruleUI->ShowRules(u"1", ruleId);
}

std::int32_t ComponentTest::playRules(Script script) {
    whenShown(u"frmRuleEdit", [](User &user) { user.press(Key::escape); });
    whenShown(u"frmRules", std::move(script));
    return showRules(u"");
}

std::int32_t ComponentTest::playNewRule(Script script) {
    whenShown(u"frmRuleEdit", std::move(script));
    whenShown(u"frmRules", [](User &user) { user.click(u"cmdCancel"); });
    return showRules(u"");
}

std::int32_t ComponentTest::playRule(std::int64_t id, Script script) {
    whenShown(u"frmRuleEdit", std::move(script));
    whenShown(u"frmRules", [](User &user) { user.click(u"cmdCancel"); });
    return showRules(toText(id));
}

void ComponentTest::expectLog(const Texts &subsAndModules) {
    Texts expected;
    for (const auto &text : subsAndModules) {
        expected.push_back(u"KVEXMessageRules: Error occured. " + text);
    }
    EXPECT_EQ(utility.logTexts(), expected);
    logged = std::exchange(utility.log, {});
}

void ComponentTest::expectMessages(const std::vector<Message> &messages) {
    EXPECT_EQ(std::exchange(utility.messages, {}), messages);
}

void ComponentTest::expectReports(const std::vector<Report> &reports) {
    EXPECT_EQ(std::exchange(utility.reports, {}), reports);
}

std::string utf8(std::u16string_view text) {
    return toUtf8(text);
}

std::vector<int> tickedRows(const ListView &list) {
    std::vector<int> rows;
    for (int row = 1; row <= list.rowCount(); ++row) {
        if (list.checked(row)) {
            rows.push_back(row);
        }
    }
    return rows;
}

} // namespace kvex::test
