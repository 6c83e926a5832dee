// A collection of texts as it crosses a component's boundary.
#pragma once

#include "adapters/classserver/server/ComObject.h"
#include "adapters/classserver/server/Guard.h"
#include "platform/HostSuite.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kvex::host {

/// Does not change.
class TextCollection final : public ComObject<ITextCollection> {
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

} // namespace kvex::host
