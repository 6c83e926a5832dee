// The utility object of this host: it names the database and prints the log.
#pragma once

#include <kvex/ComObject.h>
#include <kvex/HostSuite.h>

#include <iostream>
#include <string>
#include <utility>

class Utility final : public kvex::ComObject<IUtility> {
public:
    /// `boxes` shows the message boxes, because this program has no windows of its own.
    Utility(std::string database, kvex::ComPointer<IUtility> boxes)
        : database_(std::move(database)), boxes_(std::move(boxes)) {}

    HRESULT GetConnectionString(BSTR *connectionString) noexcept override {
        return give(database_, connectionString);
    }
    HRESULT GetSecondText(BSTR *text) noexcept override { return give("", text); }

    HRESULT WriteErrorLog(BSTR * /*logFile*/, ErrorRecord *error, BSTR text, LONG /*reserved*/,
                          VARIANT_BOOL * /*flag*/, LONG * /*output*/) noexcept override {
        std::cerr << "log: " << kvex::utf8Of(text) << ": error " << error->number << ", "
                  << kvex::utf8Of(error->description) << '\n';
        if (static_cast<kvex::HelpContext>(error->helpContext) != kvex::HelpContext::none) {
            LONG answer = 0;
            ShowMessageBox(error->description, kvex::message_box::exclamation, &answer);
        }
        return S_OK;
    }
    HRESULT ReportMessage(BSTR * /*logFile*/, BSTR text, VARIANT_BOOL /*first*/,
                          VARIANT_BOOL /*second*/) noexcept override {
        std::cerr << "log: " << kvex::utf8Of(text) << '\n';
        return S_OK;
    }
    HRESULT ShowMessageBox(BSTR text, LONG style, LONG *result) noexcept override {
        return boxes_->ShowMessageBox(text, style, result);
    }

private:
    ~Utility() override = default;

    static HRESULT give(const std::string &text, BSTR *target) noexcept {
        *target = SysAllocUtf8(text.data(), static_cast<std::uint32_t>(text.size()));
        return *target == nullptr ? E_OUTOFMEMORY : S_OK;
    }

    std::string database_;
    kvex::ComPointer<IUtility> boxes_;
};
