// The address book of this host: it always chooses the numbers of the command line.
#pragma once

#include <kvex/ComObject.h>
#include <kvex/HostSuite.h>

#include <string>
#include <utility>
#include <vector>

class Texts final : public kvex::ComObject<ITextCollection> {
public:
    explicit Texts(std::vector<std::string> texts) : texts_(std::move(texts)) {}

    HRESULT GetCount(LONG *count) noexcept override {
        *count = static_cast<LONG>(texts_.size());
        return S_OK;
    }
    HRESULT GetItem(LONG index, BSTR *text) noexcept override {
        *text = nullptr;
        if (index < 1 || static_cast<std::size_t>(index) > texts_.size()) {
            return E_INVALIDARG;
        }
        const std::string &item = texts_[static_cast<std::size_t>(index) - 1];
        *text = SysAllocUtf8(item.data(), static_cast<std::uint32_t>(item.size()));
        return *text == nullptr ? E_OUTOFMEMORY : S_OK;
    }

private:
    ~Texts() override = default;

    std::vector<std::string> texts_;
};

class AddressBook final : public kvex::ComObject<IManageContacts> {
public:
    explicit AddressBook(std::vector<std::string> numbers)
        : hasNumbers_(!numbers.empty()), numbers_(kvex::makeComObject<Texts>(std::move(numbers))) {}

    HRESULT Init(BSTR /*first*/, BSTR /*connectionString*/, LONG /*mode*/, BSTR * /*secondText*/,
                 BSTR * /*logFile*/, VARIANT_BOOL *success) noexcept override {
        *success = VARIANT_TRUE;
        return S_OK;
    }
    HRESULT SelectRecipients(LONG /*userId*/, VARIANT_BOOL /*multiple*/,
                             LONG *code) noexcept override {
        *code = hasNumbers_ ? 1 : 0;
        return S_OK;
    }
    HRESULT GetSelectedItems(ITextCollection **items) noexcept override {
        return GetSelectedNumbers(items);
    }
    HRESULT GetSelectedNumbers(ITextCollection **numbers) noexcept override {
        *numbers = kvex::ComPointer<ITextCollection>(numbers_.get()).detach();
        return S_OK;
    }

private:
    ~AddressBook() override = default;

    bool hasNumbers_;
    kvex::ComPointer<Texts> numbers_;
};
