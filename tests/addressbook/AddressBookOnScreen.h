// The address book on a real toolkit, with real keys and the mouse.
#pragma once

#include "tests/addressbook/AddressBookTest.h"
#include "tests/support/OnScreenStage.h"

namespace kvex::test {

using controls::Key;

class AddressBookOnScreen : public AddressBookTest, public testing::WithParamInterface<MakeStage> {
protected:
    void TearDown() override {
        EXPECT_EQ(stage->problems(), std::vector<std::string>());
        EXPECT_EQ(stage->pendingScripts(), 0U);
    }

    LONG select(OnScreen script, bool multiple = true) {
        book = open(stage->toolkit());
        stage->whenShown(u"frmAddressBook", std::move(script));
        LONG code = -1;
        EXPECT_EQ(book->SelectRecipients(1, multiple ? VARIANT_TRUE : VARIANT_FALSE, &code), S_OK);
        return code;
    }

    std::unique_ptr<OnScreenStage> stage = GetParam()();
    ComPointer<IManageContacts> book;
};

} // namespace kvex::test
