// The session: what all code of the component shares, one set per thread of the host.
#pragma once

#include "component/session/ObjectVariable.h"
#include "platform/Platform.h"

#include <string>
#include <string_view>

namespace kvex {

/// The objects live from the creation of RuleUI to its release. A second RuleUI on the same
/// thread replaces them: there is no separation of instances.
struct Session {
    /// What the objects are made from.
    Platform *platform = nullptr;

    ObjectVariable<Utility> objUtility;
    ObjectVariable<Connection> cnMain;
    ObjectVariable<Recordset> rsRules;
    ObjectVariable<Recordset> rsUsers;
    ObjectVariable<Recordset> rsAccounts;
    ObjectVariable<Recordset> rsServices;
    ObjectVariable<Recordset> rsServiceCommands;

    /// The component's directory followed by "\KVEX.log".
    std::u16string strLogFile;
    /// In whose name rules are edited.
    std::u16string strUserID;
    /// The text of the last query opened.
    std::u16string strSQL;

    /// Whether the record set was not empty right after it was opened. Never computed again.
    bool blnHasRules = false;
    bool blnHasUsers = false;
    bool blnHasAccounts = false;
    bool blnHasServices = false;
    bool blnHasServiceCommands = false;

    /// Something was edited. Cleared by the rule editor's load alone, so it outlives a session.
    bool blnChanged = false;
};

/// This thread's session.
[[nodiscard]] Session &session() noexcept;

/// Makes the record whose ID `id` is the current one; without such a record `records` stands at
/// its end. Fails with badArgument when `id` is no number.
void findRecordById(Recordset &records, std::u16string_view id);

/// Shows a message of the component to the user; the answer is one of message_box.
std::int32_t showMessage(const std::u16string &text, std::int32_t style);

} // namespace kvex
