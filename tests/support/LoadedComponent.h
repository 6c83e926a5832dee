// The component as a host loads it from its file, for calls that need no session.
#pragma once

#include "kvex/ComObject.h"
#include "kvex/ComPointer.h"
#include "kvex/HostSuite.h"
#include "kvex/RuleStrings.h"
#include "kvex/RuleUI.h"

#include <cstdint>

namespace kvex::test {

/// Every call fails: the component must need none.
class UselessUtility final : public ComObject<IUtility> {
public:
    HRESULT GetConnectionString(BSTR *) noexcept override { return E_FAIL; }
    HRESULT GetSecondText(BSTR *) noexcept override { return E_FAIL; }
    HRESULT WriteErrorLog(BSTR *, ErrorRecord *, BSTR, LONG, VARIANT_BOOL *,
                          LONG *) noexcept override {
        return E_FAIL;
    }
    HRESULT ReportMessage(BSTR *, BSTR, VARIANT_BOOL, VARIANT_BOOL) noexcept override {
        return E_FAIL;
    }
    HRESULT ShowMessageBox(BSTR, LONG, LONG *) noexcept override { return E_FAIL; }

private:
    ~UselessUtility() override = default;
};

/// An object of the class RuleUI, with a useless utility object.
class LoadedComponent {
public:
    LoadedComponent();
    ~LoadedComponent();
    LoadedComponent(const LoadedComponent &) = delete;
    LoadedComponent &operator=(const LoadedComponent &) = delete;

    [[nodiscard]] IRuleUI &object() const { return *object_; }
    [[nodiscard]] ComPointer<IRuleStrings> strings() const { return object_.as<IRuleStrings>(); }

private:
    std::uint32_t registration_ = 0;
    ComPointer<IRuleUI> object_;
};

} // namespace kvex::test
