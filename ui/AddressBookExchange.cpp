#include "ui/AddressBookExchange.h"

#include "component/Session.h"
#include "platform/Text.h"

namespace kvex {
namespace {

constexpr std::int16_t chosen = 1;

void report(const std::u16string &text) {
    session().objUtility->reportMessage(session().strLogFile, text, true, true);
}

} // namespace

void addFromAddressBook(EntryList &numbers) {
    const auto addressBook = session().platform->createAddressBook();
    const std::u16string connectionString = session().objUtility->connectionString();
    const std::u16string secondText = session().objUtility->secondText();
    if (!addressBook->init(u"", connectionString, 1, secondText, session().strLogFile)) {
        report(u"KVEXMessageRules: Could not load AddressBook. Init() failed on ManageContacts.");
        return;
    }
    const std::int32_t code = addressBook->selectRecipients(toInt32(session().strUserID), true);
    if (toInt16(static_cast<double>(code)) != chosen) {
        report(u"KVEXMessageRules: Recipient selection failed on ManageContacts.");
        return;
    }
    session().blnChanged = true;
    // Both are fetched, in this order, of which the first is not read.
    static_cast<void>(addressBook->selectedItems());
    for (const std::u16string &number : addressBook->selectedNumbers()) {
        numbers.add(number);
    }
    if (numbers.hasRows()) {
        numbers.enableButtons(true);
    }
}

} // namespace kvex
