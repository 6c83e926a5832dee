// The session: the objects and values that all code of the component shares. Each thread of the
// host has its own.
#pragma once

#include "component/session/ObjectVariable.h"
#include "platform/Platform.h"

#include <string>
#include <string_view>

namespace kvex {

/// The objects live from the creation of RuleUI to its release. A second RuleUI on the same thread
/// replaces them; instances are not separate.
struct Session {
    /// The platform that creates the objects.
    Platform *platform = nullptr;

    ObjectVariable<Utility> objUtility;
    ObjectVariable<Connection> cnMain;
    ObjectVariable<Recordset> rsRules;
    ObjectVariable<Recordset> rsUsers;
    ObjectVariable<Recordset> rsAccounts;
    ObjectVariable<Recordset> rsServices;
    ObjectVariable<Recordset> rsServiceCommands;

    /// The directory of the component, followed by "\KVEX.log".
    std::u16string strLogFile;
    /// The user who edits the rules.
    std::u16string strUserID;
    /// The text of the query that was opened last.
    std::u16string strSQL;

    /// Whether the record set had rows right after it was opened. Later changes do not count.
    bool blnHasRules = false;
    bool blnHasUsers = false;
    bool blnHasAccounts = false;
    bool blnHasServices = false;
    bool blnHasServiceCommands = false;

    /// Whether something was edited. Only loading the rule editor clears it, so it can outlive a
    /// session.
    bool blnChanged = false;
};

/// This thread's session.
[[nodiscard]] Session &session() noexcept;

/// Makes the record with the ID `id` the current one. When there is none, `records` stands at its
/// end. Fails with badArgument when `id` is no number.
void findRecordById(Recordset &records, std::u16string_view id);

/// Shows a message to the user and returns the answer, one of message_box.
std::int32_t showMessage(const std::u16string &text, std::int32_t style);

} // namespace kvex
