// ODBC's handles, which free themselves, and its type of text.
#pragma once

#include "adapters/odbc/OdbcError.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <string>
#include <utility>

namespace kvex::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "texts pass without conversion");

/// ODBC declares even the texts that it only reads as changeable.
[[nodiscard]] inline SQLWCHAR *wide(const char16_t *text) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
    return const_cast<SQLWCHAR *>(reinterpret_cast<const SQLWCHAR *>(text));
}

template <SQLSMALLINT Type> class Handle {
public:
    /// Fails with outOfMemory, or with the error that the owner's diagnostics report.
    Handle(SQLHANDLE owner, SQLSMALLINT ownerType) {
        if (!SQL_SUCCEEDED(SQLAllocHandle(Type, owner, &handle_))) {
            throw owner ? errorOf(diagnosticOf(ownerType, owner))
                        : Error(error_number::outOfMemory);
        }
    }
    ~Handle() {
        if (handle_) {
            SQLFreeHandle(Type, handle_);
        }
    }
    Handle(Handle &&other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle(const Handle &) = delete;
    Handle &operator=(const Handle &) = delete;
    Handle &operator=(Handle &&) = delete;

    [[nodiscard]] SQLHANDLE get() const noexcept { return handle_; }
    /// Lets the owner free the handle: a connection does so when it closes.
    void leaveToOwner() noexcept { handle_ = nullptr; }
    /// Throws the reported error when `result`, from a call on this handle, is a failure.
    void check(SQLRETURN result) const {
        if (!SQL_SUCCEEDED(result)) {
            throw errorOf(diagnosticOf(Type, handle_));
        }
    }

private:
    SQLHANDLE handle_ = nullptr;
};

} // namespace kvex::odbc
