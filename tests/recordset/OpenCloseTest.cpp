// Opening and closing of connections and record sets.
#include "tests/recordset/RecordsetConformance.h"

namespace kvex::test {

TEST_P(RecordsetConformance, AConnectionIsOpenFromOpenToClose) {
    const auto session = closedConnection();
    EXPECT_EQ(session->state(), ObjectState::closed);
    session->open(database().connectionString(), u"", u"", unspecifiedOptions);
    EXPECT_EQ(session->state(), ObjectState::open);
    session->close();
    EXPECT_EQ(session->state(), ObjectState::closed);
}

TEST_P(RecordsetConformance, AnOpenConnectionCannotBeOpened) {
    EXPECT_EQ(errorNumber([&] { connection().open(database().connectionString()); }),
              error_number::objectOpen);
    EXPECT_EQ(connection().state(), ObjectState::open);
}

TEST_P(RecordsetConformance, AClosedConnectionCannotBeClosed) {
    EXPECT_EQ(errorNumber([&] { closedConnection()->close(); }), error_number::objectClosed);
}

TEST_P(RecordsetConformance, AConnectionOpensAgainAfterItsClosing) {
    connection().close();
    connection().open(database().connectionString());
    EXPECT_EQ(openRules()->recordCount(), 0);
}

TEST_P(RecordsetConformance, AConnectionThatNoProviderKnowsStaysClosed) {
    const auto session = closedConnection();
    EXPECT_EQ(errorNumber([&] { session->open(u"Provider=Unheard;Data Source=x"); }),
              error_number::badArgument);
    EXPECT_EQ(session->state(), ObjectState::closed);
}

TEST_P(RecordsetConformance, ARecordSetIsOpenFromOpenToClose) {
    recordset::ClientRecordset records;
    Recordset &rules = records;
    EXPECT_EQ(rules.state(), ObjectState::closed);
    rules.open(u"SELECT * FROM SMS_RULES", connection());
    EXPECT_EQ(rules.state(), ObjectState::open);
    rules.close();
    EXPECT_EQ(rules.state(), ObjectState::closed);
    rules.open(u"SELECT * FROM SMS_USERS", connection());
    EXPECT_EQ(rules.state(), ObjectState::open);
}

TEST_P(RecordsetConformance, AnOpenRecordSetCannotBeOpened) {
    insertRule(1, u"kept");
    const auto rules = openRules();
    EXPECT_EQ(errorNumber([&] { rules->open(u"SELECT * FROM SMS_USERS", connection()); }),
              error_number::objectOpen);
    EXPECT_EQ(errorNumber([&] { rules->setCursorLocation(CursorLocation::client); }),
              error_number::objectOpen);
    EXPECT_EQ(name(*rules), u"kept");
}

TEST_P(RecordsetConformance, AServerCursorBehavesLikeAClientCursor) {
    insertRule(1, u"kept");
    recordset::ClientRecordset records;
    Recordset &rules = records;
    rules.setCursorLocation(CursorLocation::server);
    rules.open(u"SELECT * FROM SMS_RULES", connection());
    connection().close();
    EXPECT_EQ(name(rules), u"kept");
}

TEST_P(RecordsetConformance, AClosedRecordSetRefusesEveryCall) {
    recordset::ClientRecordset records;
    Recordset &rules = records;
    const auto refused = [](const auto &call) {
        return errorNumber(call) == error_number::objectClosed;
    };
    EXPECT_TRUE(refused([&] { rules.close(); }));
    EXPECT_TRUE(refused([&] { static_cast<void>(rules.bof()); }));
    EXPECT_TRUE(refused([&] { static_cast<void>(rules.eof()); }));
    EXPECT_TRUE(refused([&] { static_cast<void>(rules.recordCount()); }));
    EXPECT_TRUE(refused([&] { rules.moveFirst(); }));
    EXPECT_TRUE(refused([&] { rules.moveNext(); }));
    EXPECT_TRUE(refused([&] { rules.find(u"ID = 1"); }));
    EXPECT_TRUE(refused([&] { static_cast<void>(rules.field(u"ID")); }));
    EXPECT_TRUE(refused([&] { rules.setField(u"ID", Null()); }));
    EXPECT_TRUE(refused([&] { rules.addNew(); }));
    EXPECT_TRUE(refused([&] { rules.update(); }));
    EXPECT_TRUE(refused([&] { rules.deleteCurrent(); }));
    EXPECT_TRUE(refused([&] { rules.resyncCurrent(); }));
}

TEST_P(RecordsetConformance, ARecordSetDoesNotOpenOnAClosedConnection) {
    connection().close();
    recordset::ClientRecordset records;
    Recordset &rules = records;
    EXPECT_EQ(errorNumber([&] { rules.open(u"SELECT * FROM SMS_RULES", connection()); }),
              error_number::objectClosed);
    EXPECT_EQ(rules.state(), ObjectState::closed);
}

TEST_P(RecordsetConformance, AMissingTableIsTheDatabasesErrorAndNamesTheTable) {
    recordset::ClientRecordset records;
    Recordset &rules = records;
    const Error error =
        raisedBy([&] { rules.open(u"SELECT * FROM SMS_NOTHING", connection()); }).value();
    EXPECT_TRUE(error.fromDatabase());
    // A server may fold the case of names.
    const auto names = [&](std::u16string_view table) {
        return error.description().find(table) != std::u16string::npos;
    };
    EXPECT_TRUE(names(u"SMS_NOTHING") || names(u"sms_nothing"));
    EXPECT_EQ(rules.state(), ObjectState::closed);
}

TEST_P(RecordsetConformance, AStatementWithoutRowsIsNotRun) {
    insertRule(1, u"kept");
    recordset::ClientRecordset records;
    Recordset &rules = records;
    EXPECT_EQ(errorNumber([&] { rules.open(u"DELETE FROM SMS_RULES", connection()); }),
              error_number::badArgument);
    EXPECT_EQ(rules.state(), ObjectState::closed);
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(RecordsetConformance, ARecordSetStaysReadableAfterItsConnectionClosed) {
    insertRule(1, u"first");
    insertRule(2, u"second");
    const auto rules = openRules();
    connection().close();
    EXPECT_EQ(rules->state(), ObjectState::open);
    EXPECT_EQ(ids(*rules), (std::vector<std::int32_t>{1, 2}));
    rules->moveFirst();
    rules->find(u"ID = 2");
    EXPECT_EQ(name(*rules), u"second");
    rules->close();
    EXPECT_EQ(rules->state(), ObjectState::closed);
}

TEST_P(RecordsetConformance, WritesFailOnceTheConnectionClosed) {
    insertRule(1, u"stored");
    const auto rules = openRules();
    connection().close();
    rules->setField(u"Name", u"changed");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), error_number::objectClosed);
    EXPECT_EQ(errorNumber([&] { rules->deleteCurrent(); }), error_number::objectClosed);
    EXPECT_EQ(errorNumber([&] { rules->resyncCurrent(); }), error_number::objectClosed);
    rules->addNew();
    rules->setField(u"Name", u"new");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), error_number::objectClosed);
    EXPECT_EQ(rules->recordCount(), 1);
    EXPECT_EQ(storedName(1), u"stored");
    EXPECT_EQ(ruleCount(), u"1");
}

TEST_P(RecordsetConformance, AConnectionOpenedAgainDoesNotTakeItsOldRecordSets) {
    insertRule(1, u"stored");
    const auto rules = openRules();
    connection().close();
    connection().open(database().connectionString());
    rules->setField(u"Name", u"changed");
    EXPECT_EQ(errorNumber([&] { rules->update(); }), error_number::objectClosed);
    EXPECT_EQ(storedName(1), u"stored");
}

TEST_P(RecordsetConformance, ClosingDropsWhatIsPending) {
    insertRule(1, u"stored");
    const auto rules = openRules();
    rules->setField(u"Name", u"changed");
    rules->close();
    EXPECT_EQ(storedName(1), u"stored");
}

} // namespace kvex::test
