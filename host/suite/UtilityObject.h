// The suite's utility object. Derived classes decide how it shows messages.
#pragma once

#include "adapters/classserver/server/ServerObject.h"
#include "kvex/HostSuite.h"
#include "platform/Error.h"

#include <cstdint>
#include <set>
#include <string>

namespace kvex::host {

/// Works on suiteState(). It logs every error. An error that concerns the user is also shown, with
/// advice. What could only not be read is shown once by each object.
class UtilityObject : public ServerObject<IUtility> {
public:
    HRESULT GetConnectionString(BSTR *connectionString) noexcept final;
    HRESULT GetSecondText(BSTR *text) noexcept final;
    /// If `*flag` is false, the error is not shown. Sets `*output` to 0. `flag` and `output` may be
    /// null.
    HRESULT WriteErrorLog(BSTR *logFile, ErrorRecord *error, BSTR text, LONG reserved,
                          VARIANT_BOOL *flag, LONG *output) noexcept final;
    HRESULT ReportMessage(BSTR *logFile, BSTR text, VARIANT_BOOL first,
                          VARIANT_BOOL second) noexcept final;
    HRESULT ShowMessageBox(BSTR text, LONG style, LONG *result) noexcept final;

protected:
    ~UtilityObject() override = default;

private:
    /// Takes and returns what ShowMessageBox does.
    virtual std::int32_t showMessage(const std::u16string &text, std::int32_t style) = 0;
    /// Shows a logged error to the user. If that fails, writes it to standard error.
    virtual void tellUser(const Error &error);

    /// The descriptions that were shown and are shown once.
    std::set<std::u16string> told_;
};

} // namespace kvex::host
