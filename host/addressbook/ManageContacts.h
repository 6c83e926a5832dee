// The suite's address book: lets the user choose contacts of the server's database.
#pragma once

#include "adapters/classserver/server/ComObject.h"
#include "host/addressbook/Contacts.h"
#include "platform/Error.h"
#include "platform/HostSuite.h"
#include "platform/controls/Toolkit.h"

#include <memory>
#include <string>
#include <vector>

namespace kvex::host {

/// Contacts without a number are left out: nothing can be sent to them.
class ManageContacts final : public ComObject<IManageContacts> {
public:
    /// The toolkit is the caller's, and outlives the object.
    explicit ManageContacts(Toolkit &toolkit) : toolkit_(toolkit) {}

    /// Opens the database; `first`, `mode` and the second text say nothing to this address book.
    /// `*success` false, with the reason in the error log and shown to the user, when there is no
    /// such database or it has no contacts' table. `*logFile` is where errors are logged from then
    /// on.
    HRESULT Init(BSTR first, BSTR connectionString, LONG mode, BSTR *secondText, BSTR *logFile,
                 VARIANT_BOOL *success) noexcept final;
    /// Shows the address book to choose one contact in it, or with `multiple` many. `*code` is 0
    /// when the user cancelled. E_UNEXPECTED without an Init that succeeded; what the database or
    /// the toolkit refuses is logged and shown as well, and comes back as currentResult() says.
    /// After a failure, as after a cancellation, nothing is selected.
    HRESULT SelectRecipients(LONG userId, VARIANT_BOOL multiple, LONG *code) noexcept final;
    /// The names, and the numbers in the same order, of the last selection; empty before.
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
