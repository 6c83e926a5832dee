// The suite's address book: lets the user choose contacts of the server's database.
#pragma once

#include "adapters/classserver/server/ServerObject.h"
#include "host/addressbook/Contacts.h"
#include "kvex/HostSuite.h"
#include "platform/Error.h"
#include "platform/controls/Toolkit.h"

#include <memory>
#include <string>
#include <vector>

namespace kvex::host {

/// Contacts without a number are left out: nothing can be sent to them.
class ManageContacts final : public ServerObject<IManageContacts> {
public:
    /// `toolkit` must outlive the object.
    explicit ManageContacts(Toolkit &toolkit) : toolkit_(toolkit) {}

    /// Opens the database, and logs errors in `*logFile` from then on. It ignores `first`, `mode`
    /// and the second text. `*success` is false when the database cannot be opened or has no table
    /// of contacts. Then the reason is in the log, and the user has seen it.
    HRESULT Init(BSTR first, BSTR connectionString, LONG mode, BSTR *secondText, BSTR *logFile,
                 VARIANT_BOOL *success) noexcept final;
    /// Shows the address book. The user chooses one contact, or many if `multiple` is set. `*code`
    /// is 0 when the user cancelled. Fails with E_UNEXPECTED without an Init that succeeded. An
    /// error of the database or the toolkit is logged and shown; the result is currentResult()'s.
    /// After a failure or a cancellation nothing is selected.
    HRESULT SelectRecipients(LONG userId, VARIANT_BOOL multiple, LONG *code) noexcept final;
    /// The names of the last selection, empty before the first. The numbers have the same order.
    HRESULT GetSelectedItems(ITextCollection **items) noexcept final;
    HRESULT GetSelectedNumbers(ITextCollection **numbers) noexcept final;

private:
    ~ManageContacts() final = default;

    [[nodiscard]] std::vector<Contact> contactsOf(LONG userId);
    void tell(const Error &error);
    HRESULT give(std::u16string Contact::*part, ITextCollection **texts) const noexcept;

    Toolkit &toolkit_;
    std::u16string logFile_;
    /// Null without an Init that succeeded.
    std::unique_ptr<Connection> connection_;
    std::vector<Contact> selection_;
};

} // namespace kvex::host
