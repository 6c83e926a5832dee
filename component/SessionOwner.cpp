#include "component/SessionOwner.h"

#include "component/session/ErrorTrap.h"
#include "component/session/Session.h"
#include "platform/Text.h"
#include "rules/RuleDescription.h"
#include "rules/RuleState.h"
#include "ui/rules/frmRules.h"

namespace kvex {
namespace {

constexpr std::u16string_view module = u"RuleUI";

void openRecords(ObjectVariable<Recordset> &records, bool &hasRecords, const char16_t *query) {
    session().strSQL = query;
    records->setCursorLocation(CursorLocation::client);
    records->open(session().strSQL, *session().cnMain, CursorType::dynamic, LockType::optimistic,
                  unspecifiedOptions);
    hasRecords = !records->eof();
}

void openSession() {
    Session &current = session();
    current.cnMain->open(current.objUtility->connectionString(), u"", u"", unspecifiedOptions);
    openRecords(current.rsRules, current.blnHasRules,
                u"SELECT * FROM SMS_RULES WHERE DELETED = 0 ORDER BY PRIORITY");
    openRecords(current.rsUsers, current.blnHasUsers, u"SELECT * FROM SMS_USERS WHERE DELETED = 0");
    openRecords(current.rsAccounts, current.blnHasAccounts,
                u"SELECT * FROM SMS_ACCOUNT WHERE DELETED = 0");
    openRecords(current.rsServices, current.blnHasServices,
                u"SELECT * FROM SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0");
    openRecords(current.rsServiceCommands, current.blnHasServiceCommands,
                u"SELECT * FROM SMS_SERVICECOMMANDS WHERE SERVICE_ID IN (SELECT ID FROM "
                u"SMS_SERVICE WHERE DELETED = 0 AND DISABLED = 0)");
}

/// Rules whose tables are newer than this program open all the same. The user learns at once that
/// no change will be stored.
void requireWritable() {
    try {
        session().rsRules->requireWritable();
    } catch (const Error &error) {
        if (error.helpContext() != HelpContext::newerSchema) {
            throw;
        }
        logCurrentError(u"ShowRuleUI", module);
    }
}

template <class Object> void closeIfOpen(ObjectVariable<Object> &object) {
    if (object->state() == ObjectState::open) {
        object->close();
    }
}

} // namespace

SessionOwner::SessionOwner(Platform &platform) {
    Session &current = session();
    current.platform = &platform;
    current.objUtility = platform.createUtility();
    current.cnMain = platform.createConnection();
    current.rsRules = platform.createRecordset();
    current.rsUsers = platform.createRecordset();
    current.rsAccounts = platform.createRecordset();
    current.rsServices = platform.createRecordset();
    current.rsServiceCommands = platform.createRecordset();
    current.strLogFile = platform.componentDirectory() + u"\\KVEX.log";
}

std::int32_t SessionOwner::ShowRules(const std::u16string &UserId, const std::u16string &RuleID) {
    std::int32_t result = 0;
    trapErrors(u"ShowRuleUI", module, [&] {
        session().strUserID = UserId;
        openSession();
        requireWritable();
        {
            frmRules window;
            window.RuleID = RuleID;
            window.Show();
        }
        result = session().blnChanged ? 99 : 1;
    });
    return result;
}

bool SessionOwner::OpenRules() {
    bool opened = false;
    trapErrors(u"OpenRules", module, [&] {
        openSession();
        opened = true;
    });
    return opened;
}

void SessionOwner::release() {
    Session &current = session();
    closeIfOpen(current.cnMain);
    closeIfOpen(current.rsAccounts);
    closeIfOpen(current.rsRules);
    closeIfOpen(current.rsServices);
    closeIfOpen(current.rsServiceCommands);
    closeIfOpen(current.rsUsers);

    current.objUtility.release();
    current.cnMain.release();
    current.rsRules.release();
    current.rsUsers.release();
    current.rsAccounts.release();
    current.rsServices.release();
    current.rsServiceCommands.release();
}

bool hasOpenSession() {
    const ObjectVariable<Recordset> &rsRules = session().rsRules;
    return rsRules && rsRules->state() == ObjectState::open;
}

std::optional<std::vector<TextRun>> describeRule(const std::u16string &ruleId) {
    Recordset &rsRules = *session().rsRules;
    if (!isNumeric(ruleId)) {
        return std::nullopt;
    }
    findRecordById(rsRules, ruleId);
    if (rsRules.eof()) {
        return std::nullopt;
    }
    LoadRuleFromDB(ruleId);
    return BuildRuleDescription();
}

} // namespace kvex
