// The interfaces of the host suite's classes at the component's boundary. A call that fails returns
// a failed HRESULT and never throws. The caller owns the texts that a call returns.
#pragma once

#include "kvex/Component.h"

/// The runtime's current error. The caller that passes it owns its texts.
struct ErrorRecord {
    LONG number;
    BSTR description;
    BSTR source;
    /// A kvex::HelpContext (kvex/HelpContext.h).
    LONG helpContext;
};

struct IUtility : IUnknown {
    static constexpr IID iid{
        0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x01}};
    virtual HRESULT GetConnectionString(BSTR *connectionString) noexcept = 0;
    virtual HRESULT GetSecondText(BSTR *text) noexcept = 0;
    /// The component passes 0 as `reserved` and -1 as `*flag`. The utility object sets `*output`.
    virtual HRESULT WriteErrorLog(BSTR *logFile, ErrorRecord *error, BSTR text, LONG reserved,
                                  VARIANT_BOOL *flag, LONG *output) noexcept = 0;
    virtual HRESULT ReportMessage(BSTR *logFile, BSTR text, VARIANT_BOOL first,
                                  VARIANT_BOOL second) noexcept = 0;
    /// Style 48 shows OK and an exclamation mark. Style 4 shows Yes and No; `*result` is 6 for Yes
    /// and 7 for No.
    virtual HRESULT ShowMessageBox(BSTR text, LONG style, LONG *result) noexcept = 0;

protected:
    ~IUtility() = default;
};

inline constexpr CLSID CLSID_Utility{
    0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x02}};

/// A collection of texts.
struct ITextCollection : IUnknown {
    static constexpr IID iid{
        0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x03}};
    virtual HRESULT GetCount(LONG *count) noexcept = 0;
    /// `index` runs from 1 to the count. Fails with E_INVALIDARG for any other.
    virtual HRESULT GetItem(LONG index, BSTR *text) noexcept = 0;

protected:
    ~ITextCollection() = default;
};

struct IManageContacts : IUnknown {
    static constexpr IID iid{
        0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x04}};
    virtual HRESULT Init(BSTR first, BSTR connectionString, LONG mode, BSTR *secondText,
                         BSTR *logFile, VARIANT_BOOL *success) noexcept = 0;
    /// Sets `*code` to 1 when the user has chosen.
    virtual HRESULT SelectRecipients(LONG userId, VARIANT_BOOL multiple, LONG *code) noexcept = 0;
    virtual HRESULT GetSelectedItems(ITextCollection **items) noexcept = 0;
    virtual HRESULT GetSelectedNumbers(ITextCollection **numbers) noexcept = 0;

protected:
    ~IManageContacts() = default;
};

inline constexpr CLSID CLSID_ManageContacts{
    0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x05}};
