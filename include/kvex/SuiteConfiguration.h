// Configures the library KVEXHostSuite, which serves the suite's classes with windows:
// CLSID_Utility and CLSID_ManageContacts (kvex/HostSuite.h), and the class below. A host names the
// library with CoLoadServer for each class that it takes.
#pragma once

#include "kvex/Component.h"

/// The configuration of the whole process: all objects of the class change and show the same one.
/// Configure the suite before you create RuleUI. Call it from one thread at a time.
struct ISuiteConfiguration : IUnknown {
    static constexpr IID iid{
        0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x06}};
    /// Sets the texts that utility objects give out, and the file of the error log. If `logFile` is
    /// "", the writer of each entry names the file. Forgets the last error.
    virtual HRESULT Configure(BSTR connectionString, BSTR secondText, BSTR logFile) noexcept = 0;
    /// Gives the last logged error: its description with the advice for a terminal, its number, and
    /// the file that holds it. The file is "" when none could be written. Without an error the
    /// result is S_FALSE, and it gives null, 0 and null. Fails with E_POINTER when an argument is
    /// null.
    virtual HRESULT GetLastError(BSTR *logFile, BSTR *description, LONG *number) noexcept = 0;

protected:
    ~ISuiteConfiguration() = default;
};

inline constexpr CLSID CLSID_SuiteConfiguration{
    0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x07}};
