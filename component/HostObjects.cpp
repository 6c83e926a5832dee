#include "component/HostObjects.h"

#include "platform/ComPointer.h"
#include "platform/HostSuite.h"

namespace kvex {
namespace {

/// A host's object fails by a result; here it is an error again.
void check(HRESULT result, const char16_t *operation) {
    if (FAILED(result)) {
        throw Error(error_number::automationError,
                    std::u16string(u"The host suite refused ") + operation + u".");
    }
}

template <class Interface>
ComPointer<Interface> createHostObject(const CLSID &classId, const char16_t *name) {
    ComPointer<Interface> object;
    if (FAILED(createInstance(classId, object))) {
        throw Error(error_number::cannotCreateObject,
                    std::u16string(u"The host suite offers no ") + name +
                        u". Register its class object before creating RuleUI.");
    }
    return object;
}

class HostUtility final : public Utility {
public:
    std::u16string connectionString() override {
        Bstr text;
        check(object_->GetConnectionString(text.put()), u"the connection string");
        return text.text();
    }

    std::u16string secondText() override {
        Bstr text;
        check(object_->GetSecondText(text.put()), u"the second text value");
        return text.text();
    }

    void writeErrorLog(const std::u16string &logFile, const Error &error,
                       const std::u16string &text, std::int32_t reserved,
                       std::int16_t flag) override {
        Bstr file(logFile);
        const Bstr description(error.description());
        const Bstr source(error.source());
        ErrorRecord record{error.number(), description.get(), source.get()};
        LONG output = 0;
        check(object_->WriteErrorLog(file.inOut(), &record, Bstr(text).get(), reserved, &flag,
                                     &output),
              u"to write the error log");
    }

    void reportMessage(const std::u16string &logFile, const std::u16string &text, bool first,
                       bool second) override {
        const auto variant = [](bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; };
        Bstr file(logFile);
        check(
            object_->ReportMessage(file.inOut(), Bstr(text).get(), variant(first), variant(second)),
            u"to report a message");
    }

    std::int32_t showMessageBox(const std::u16string &text, std::int32_t style) override {
        LONG result = 0;
        check(object_->ShowMessageBox(Bstr(text).get(), style, &result), u"to show a message");
        return result;
    }

private:
    ComPointer<IUtility> object_ = createHostObject<IUtility>(CLSID_Utility, u"utility object");
};

class HostAddressBook final : public AddressBook {
public:
    bool init(const std::u16string &first, const std::u16string &connectionString,
              std::int32_t mode, const std::u16string &secondText,
              const std::u16string &logFile) override {
        Bstr second(secondText);
        Bstr file(logFile);
        VARIANT_BOOL success = VARIANT_FALSE;
        check(object_->Init(Bstr(first).get(), Bstr(connectionString).get(), mode, second.inOut(),
                            file.inOut(), &success),
              u"to open the address book");
        return success != VARIANT_FALSE;
    }

    std::int32_t selectRecipients(std::int32_t userId, bool multiple) override {
        LONG code = 0;
        check(object_->SelectRecipients(userId, multiple ? VARIANT_TRUE : VARIANT_FALSE, &code),
              u"the selection of recipients");
        return code;
    }

    std::vector<std::u16string> selectedItems() override {
        ComPointer<ITextCollection> items;
        check(object_->GetSelectedItems(items.put()), u"the selected items");
        return textsOf(items);
    }

    std::vector<std::u16string> selectedNumbers() override {
        ComPointer<ITextCollection> numbers;
        check(object_->GetSelectedNumbers(numbers.put()), u"the selected numbers");
        return textsOf(numbers);
    }

private:
    static std::vector<std::u16string> textsOf(const ComPointer<ITextCollection> &collection) {
        std::vector<std::u16string> texts;
        LONG count = 0;
        check(collection->GetCount(&count), u"the count of a selection");
        for (LONG index = 1; index <= count; ++index) {
            Bstr text;
            check(collection->GetItem(index, text.put()), u"an item of a selection");
            texts.push_back(text.text());
        }
        return texts;
    }

    ComPointer<IManageContacts> object_ =
        createHostObject<IManageContacts>(CLSID_ManageContacts, u"address book");
};

} // namespace

std::unique_ptr<Utility> createHostUtility() {
    return std::make_unique<HostUtility>();
}
std::unique_ptr<AddressBook> createHostAddressBook() {
    return std::make_unique<HostAddressBook>();
}

} // namespace kvex
