#include "component/HostObjects.h"

#include "kvex/ComPointer.h"
#include "kvex/HostSuite.h"

#include <utility>

namespace kvex {
namespace {

/// A host's object reports a failure as a result. This turns it back into an error.
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

/// Calls `call` with `text` by reference. Whatever the call leaves there goes back into `text`,
/// even when the call fails.
template <class Call> HRESULT withReference(std::u16string &text, Call &&call) {
    Bstr held(text);
    const HRESULT result = call(held.inOut());
    text = held.text();
    return result;
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

    void writeErrorLog(std::u16string &logFile, const Error &error, const std::u16string &text,
                       std::int32_t reserved, std::int16_t flag) override {
        const Bstr description(error.description());
        const Bstr source(error.source());
        ErrorRecord record{error.number(), description.get(), source.get(),
                           static_cast<LONG>(error.helpContext())};
        LONG output = 0;
        check(withReference(logFile,
                            [&](BSTR *file) {
                                return object_->WriteErrorLog(file, &record, Bstr(text).get(),
                                                              reserved, &flag, &output);
                            }),
              u"to write the error log");
    }

    void reportMessage(std::u16string &logFile, const std::u16string &text, bool first,
                       bool second) override {
        const auto variant = [](bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; };
        check(withReference(logFile,
                            [&](BSTR *file) {
                                return object_->ReportMessage(file, Bstr(text).get(),
                                                              variant(first), variant(second));
                            }),
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

class HostTexts final : public TextCollection {
public:
    explicit HostTexts(ComPointer<ITextCollection> object) : object_(std::move(object)) {}

    std::int32_t count() override {
        LONG count = 0;
        check(object_->GetCount(&count), u"the count of a selection");
        return count;
    }

    std::u16string item(std::int32_t index) override {
        Bstr text;
        check(object_->GetItem(index, text.put()), u"an item of a selection");
        return text.text();
    }

private:
    ComPointer<ITextCollection> object_;
};

class HostAddressBook final : public AddressBook {
public:
    bool init(const std::u16string &first, const std::u16string &connectionString,
              std::int32_t mode, std::u16string &secondText, std::u16string &logFile) override {
        VARIANT_BOOL success = VARIANT_FALSE;
        const auto call = [&](BSTR *second, BSTR *file) {
            return object_->Init(Bstr(first).get(), Bstr(connectionString).get(), mode, second,
                                 file, &success);
        };
        check(withReference(secondText,
                            [&](BSTR *second) {
                                return withReference(
                                    logFile, [&](BSTR *file) { return call(second, file); });
                            }),
              u"to open the address book");
        return success != VARIANT_FALSE;
    }

    std::int32_t selectRecipients(std::int32_t userId, bool multiple) override {
        LONG code = 0;
        check(object_->SelectRecipients(userId, multiple ? VARIANT_TRUE : VARIANT_FALSE, &code),
              u"the selection of recipients");
        return code;
    }

    std::unique_ptr<TextCollection> selectedItems() override {
        return texts(&IManageContacts::GetSelectedItems, u"the selected items");
    }

    std::unique_ptr<TextCollection> selectedNumbers() override {
        return texts(&IManageContacts::GetSelectedNumbers, u"the selected numbers");
    }

private:
    std::unique_ptr<TextCollection>
    texts(HRESULT (IManageContacts::*get)(ITextCollection **) noexcept, const char16_t *operation) {
        ComPointer<ITextCollection> collection;
        check((object_.get()->*get)(collection.put()), operation);
        return collection ? std::make_unique<HostTexts>(std::move(collection)) : nullptr;
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
