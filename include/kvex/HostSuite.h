// The interfaces of the host suite's classes: what the component needs from its host.
//
// A host serves the utility object, and the address book if it has one (kvex/ServedObject.h). Or it
// takes both classes from the library KVEXHostSuite (kvex/SuiteConfiguration.h).
//
// The component calls these objects on the thread that called it, and only during that call.
// kvex/Component.h says who owns objects and texts. A call that fails returns a failed HRESULT and
// never throws. For the component, such a failure is the run-time error 440.
#pragma once

#include "kvex/Component.h"
#include "kvex/HelpContext.h"
#include "kvex/MessageBox.h"

/// A run-time error, as the component passes it to the log. The component owns its texts; they are
/// valid during the call.
struct ErrorRecord {
    /// Negative when it comes from a database.
    LONG number;
    /// Whole sentences for the user.
    BSTR description;
    BSTR source;
    /// A kvex::HelpContext. Any but `none` means that the user should learn of the error now,
    /// because the component shows none itself.
    LONG helpContext;
};

/// The utility object. Creating RuleUI creates it; releasing RuleUI releases it.
struct IUtility : IUnknown {
    static constexpr IID iid{
        0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x01}};
    /// Gives the connection string of the server's database: the path of an SQLite file, the form
    /// "Provider=SQLite;Data Source=PATH", or an ODBC connection string.
    virtual HRESULT GetConnectionString(BSTR *connectionString) noexcept = 0;
    /// Gives a text that the component passes to the address book's Init and does not read.
    virtual HRESULT GetSecondText(BSTR *text) noexcept = 0;
    /// Writes an error to the log. `*logFile` is the component's folder, followed by "\KVEX.log". A
    /// utility object may log elsewhere, and may replace the text: later calls pass what it left
    /// there. `text` names the procedure that met the error. The component passes 0 as `reserved`
    /// and -1 as `*flag`, and ignores `*output`. When this call fails, the call of the host fails
    /// with 0x800A01B8 (error 440).
    virtual HRESULT WriteErrorLog(BSTR *logFile, ErrorRecord *error, BSTR text, LONG reserved,
                                  VARIANT_BOOL *flag, LONG *output) noexcept = 0;
    /// Writes a message that is no run-time error to the log. `*logFile` is as above. The component
    /// passes -1 as `first` and `second`, which have no further meaning.
    virtual HRESULT ReportMessage(BSTR *logFile, BSTR text, VARIANT_BOOL first,
                                  VARIANT_BOOL second) noexcept = 0;
    /// Shows `text` over the active window, and waits for the answer. `style` and `*result` are
    /// constants of kvex/MessageBox.h. Lines are separated by CR LF.
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

/// The address book. The component creates it when the user asks for it, calls Init,
/// SelectRecipients and then the last two functions, and releases it. When that or a call fails,
/// the component logs the error and adds no numbers.
struct IManageContacts : IUnknown {
    static constexpr IID iid{
        0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x04}};
    /// Begins anew: no contact is chosen. The component passes "" as `first`, 1 as `mode`, and both
    /// texts of the utility object. `*logFile` is as in IUtility::WriteErrorLog, and `*secondText`
    /// may be replaced, too. Sets `*success` to VARIANT_FALSE when the address book cannot be used.
    /// Then the component reports that to the utility object and asks for nothing else.
    virtual HRESULT Init(BSTR first, BSTR connectionString, LONG mode, BSTR *secondText,
                         BSTR *logFile, VARIANT_BOOL *success) noexcept = 0;
    /// Lets the user `userId` choose contacts. Sets `*code` to 1 when the user has chosen. The
    /// component reports any other code and adds no numbers. It passes VARIANT_TRUE as `multiple`.
    virtual HRESULT SelectRecipients(LONG userId, VARIANT_BOOL multiple, LONG *code) noexcept = 0;
    /// Gives what the user has chosen. The component releases it without reading it.
    virtual HRESULT GetSelectedItems(ITextCollection **items) noexcept = 0;
    /// Gives the mobile numbers of the choice.
    virtual HRESULT GetSelectedNumbers(ITextCollection **numbers) noexcept = 0;

protected:
    ~IManageContacts() = default;
};

inline constexpr CLSID CLSID_ManageContacts{
    0x7B1F4E52, 0x0C6A, 0x4F0E, {0x9D, 0x31, 0x52, 0xA8, 0x6E, 0x17, 0xC4, 0x05}};
