#include "ui/AddressBookExchange.h"

#include "component/session/Session.h"
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
    std::u16string secondText = session().objUtility->secondText();
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
    // The first collection is fetched and never read; the address book expects both calls, in this
    // order.
    const auto items = addressBook->selectedItems();
    ObjectVariable<TextCollection> chosenNumbers;
    chosenNumbers = addressBook->selectedNumbers();
    const std::int32_t count = chosenNumbers->count();
    for (std::int32_t index = 1; index <= count; ++index) {
        numbers.add(chosenNumbers->item(index));
    }
    if (numbers.hasRows()) {
        numbers.finishAdding();
    }
}

} // namespace kvex
