#include "host/addressbook/ManageContacts.h"

#include "adapters/classserver/server/Guard.h"
#include "host/addressbook/AddressBookWindow.h"
#include "host/suite/Advice.h"
#include "host/suite/Databases.h"
#include "host/suite/ShownText.h"
#include "host/suite/SuiteState.h"
#include "platform/Text.h"
#include "platform/VisibleText.h"

#include <cstddef>
#include <iostream>

namespace kvex::host {
namespace {

/// A collection of texts that does not change, for callers outside this component.
class TextCollection final : public ServerObject<ITextCollection> {
public:
    explicit TextCollection(std::vector<std::u16string> texts) : texts_(std::move(texts)) {}

    HRESULT GetCount(LONG *count) noexcept final {
        if (count == nullptr) {
            return E_POINTER;
        }
        *count = static_cast<LONG>(texts_.size());
        return S_OK;
    }

    HRESULT GetItem(LONG index, BSTR *text) noexcept final {
        if (text == nullptr) {
            return E_POINTER;
        }
        *text = nullptr;
        if (index < 1 || static_cast<std::size_t>(index) > texts_.size()) {
            return E_INVALIDARG;
        }
        return guarded([&] {
            *text = Bstr(texts_[static_cast<std::size_t>(index) - 1]).detach();
            return S_OK;
        });
    }

private:
    ~TextCollection() final = default;

    std::vector<std::u16string> texts_;
};

std::unique_ptr<Connection> openContacts(std::u16string_view connectionString) {
    std::unique_ptr<Connection> connection = openDatabase(connectionString);
    requireContacts(*connection);
    return connection;
}

} // namespace

HRESULT ManageContacts::Init(BSTR /*first*/, BSTR connectionString, LONG /*mode*/,
                             BSTR * /*secondText*/, BSTR *logFile, VARIANT_BOOL *success) noexcept {
    if (logFile == nullptr || success == nullptr) {
        return E_POINTER;
    }
    *success = VARIANT_FALSE;
    return guarded([&] {
        logFile_ = viewOf(*logFile);
        selection_.clear();
        connection_.reset();
        try {
            connection_ = openContacts(viewOf(connectionString));
            *success = VARIANT_TRUE;
        } catch (const Error &error) {
            tell(error);
        }
        return S_OK;
    });
}

HRESULT ManageContacts::SelectRecipients(LONG userId, VARIANT_BOOL multiple, LONG *code) noexcept {
    if (code == nullptr) {
        return E_POINTER;
    }
    *code = 0;
    selection_.clear();
    if (connection_ == nullptr) {
        return E_UNEXPECTED;
    }
    return guarded([&] {
        try {
            AddressBookWindow window(toolkit_, contactsOf(userId), multiple != VARIANT_FALSE);
            selection_ = window.show();
            *code = selection_.empty() ? 0 : 1;
            return S_OK;
        } catch (const Error &error) {
            tell(error);
            throw;
        }
    });
}

HRESULT ManageContacts::GetSelectedItems(ITextCollection **items) noexcept {
    return give(&Contact::name, items);
}

HRESULT ManageContacts::GetSelectedNumbers(ITextCollection **numbers) noexcept {
    return give(&Contact::number, numbers);
}

std::vector<Contact> ManageContacts::contactsOf(LONG userId) {
    std::vector<Contact> contacts = readContacts(*connection_, userId);
    std::erase_if(contacts, [](const Contact &contact) { return trimmed(contact.number).empty(); });
    return contacts;
}

/// Logs the error, and shows it to the user. Callers only log a failure, so without the message the
/// button would seem to do nothing.
void ManageContacts::tell(const Error &error) {
    const std::u16string sentence = u"The address book cannot be opened.";
    logEntry(logFile_, u"KVEXHostSuite: " + sentence, &error);
    const std::u16string text =
        sentence + u"\r\n\r\n" + withoutPasswords(withAdvice(error, Place::addressBook));
    try {
        toolkit_.showMessageBox(u"Address Book", text, message_box::exclamation);
    } catch (const Error &) {
        std::cerr << toUtf8(harmlessLines(text)) << std::endl;
    }
}

HRESULT ManageContacts::give(std::u16string Contact::*part,
                             ITextCollection **texts) const noexcept {
    if (texts == nullptr) {
        return E_POINTER;
    }
    *texts = nullptr;
    return guarded([&] {
        std::vector<std::u16string> parts;
        parts.reserve(selection_.size());
        for (const Contact &contact : selection_) {
            parts.push_back(contact.*part);
        }
        *texts = makeComObject<TextCollection>(std::move(parts)).detach();
        return S_OK;
    });
}

} // namespace kvex::host
