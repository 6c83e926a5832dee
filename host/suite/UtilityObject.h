// The suite's utility object, whatever it shows messages with.
#pragma once

#include "adapters/classserver/server/ComObject.h"
#include "platform/Error.h"
#include "platform/HostSuite.h"

#include <cstdint>
#include <string>

namespace kvex::host {

/// Works on suiteState(). The user is told of an error that comes from the database as well,
/// because not all that he did was stored; every other one is only logged.
class UtilityObject : public ComObject<IUtility> {
public:
    HRESULT GetConnectionString(BSTR *connectionString) noexcept final;
    HRESULT GetSecondText(BSTR *text) noexcept final;
    /// `flag` false keeps the error from being shown. `*output` is set to 0; it may be null, and
    /// so may `flag`.
    HRESULT WriteErrorLog(BSTR *logFile, ErrorRecord *error, BSTR text, LONG reserved,
                          VARIANT_BOOL *flag, LONG *output) noexcept final;
    HRESULT ReportMessage(BSTR *logFile, BSTR text, VARIANT_BOOL first,
                          VARIANT_BOOL second) noexcept final;
    HRESULT ShowMessageBox(BSTR text, LONG style, LONG *result) noexcept final;

protected:
    ~UtilityObject() override = default;

private:
    /// Styles and results are those of ShowMessageBox.
    virtual std::int32_t showMessage(const std::u16string &text, std::int32_t style) = 0;
    /// Of a database's error that was logged: shows it or, where that cannot be done, writes it
    /// to standard error.
    virtual void tellUser(const Error &error);
};

} // namespace kvex::host
