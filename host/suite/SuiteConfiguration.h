// How a host configures the library KVEXHostSuite, the component server of the suite's classes
// with windows. It creates this object, and configures the suite, before any other of the suite's.
#pragma once

#include "platform/Component.h"

struct ISuiteConfiguration : IUnknown {
    static constexpr IID iid{
        0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x06}};
    /// What utility objects give out, and the file for all entries of the error log, "" for the
    /// one that each entry's writer names.
    virtual HRESULT Configure(BSTR connectionString, BSTR secondText, BSTR logFile) noexcept = 0;
    /// The description and the number of the last error that was logged, and the file that it is
    /// in, "" when none could be written. S_FALSE, null, null and 0 while there was none.
    virtual HRESULT GetLastError(BSTR *logFile, BSTR *description, LONG *number) noexcept = 0;

protected:
    ~ISuiteConfiguration() = default;
};

inline constexpr CLSID CLSID_SuiteConfiguration{
    0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x07}};
