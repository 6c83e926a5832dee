// The component's public contract: the class RuleUI and what a host can ask of it.
//
// A host registers the suite's utility object (CLSID_Utility, platform/HostSuite.h) with the
// class server and creates RuleUI by its class id or by its name, "KVEXMessageRules.RuleUI". The
// creation fails with 0x800A01AD (error 429) when nobody offers the utility object.
//
// Errors go to the utility object's log. When that call fails, the method that met the error
// fails with 0x800A01B8 (error 440).
#pragma once

#include "platform/Component.h"

inline constexpr char16_t RuleUIProgramId[] = u"KVEXMessageRules.RuleUI";

inline constexpr CLSID CLSID_RuleUI{
    0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x01}};

/// The default interface. One thread at a time; where windows are shown, the thread that showed
/// the first window of the process.
struct IRuleUI : IUnknown {
    static constexpr IID iid{
        0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x02}};
    /// Shows the rules in the name of the user `userId` until he closes the window. The rule
    /// editor opens at once, on the rule whose id `ruleId` is, or on a new rule when it is "".
    ///
    /// `*result`:
    /// - 99: the user may have edited something. The user may also have cancelled the edit. An edit
    ///   that an earlier call on this thread noted counts until the editor opens.
    /// - 1: no edit was noted. Rules may still have been removed. Rules that were switched or
    ///   ordered before the editor was opened again are stored, but no longer noted.
    /// - 0: the session could not be opened or the window not shown (the reason is in the log).
    /// So a host reloads its rules after every call that did not give 0.
    ///
    /// A second call on one object gives 0: its session is open until the object is released.
    /// Fails with E_POINTER when `result` is null.
    virtual HRESULT ShowRules(BSTR userId, BSTR ruleId, LONG *result) noexcept = 0;

protected:
    ~IRuleUI() = default;
};

/// Takes a rule's description piece by piece.
struct IDescriptionSink : IUnknown {
    static constexpr IID iid{
        0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x03}};
    /// `text` in one colour, 0x00BBGGRR: 0 (fixed words), 0xFF0000 (values), 255 (remarks).
    /// Lines are separated by CR LF. A failed result ends the description.
    virtual HRESULT Write(BSTR text, LONG colour) noexcept = 0;

protected:
    ~IDescriptionSink() = default;
};

/// Reading rules without a window: for terminals and reports. An object of the class gives it by
/// QueryInterface. Needs no display.
struct IRuleReader : IUnknown {
    static constexpr IID iid{
        0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x04}};
    /// Opens the session as ShowRules does, without a window. Fails with E_FAIL when that cannot
    /// be done, also because it is open already; the reason is in the log.
    virtual HRESULT OpenRules() noexcept = 0;
    /// Describes the rule whose id `ruleId` is, as the rules window would show it: its first line
    /// follows the stored ACTIVE. S_FALSE, and nothing written, when no rule has this id; so for a
    /// text that is no id. E_UNEXPECTED while no session is open, E_POINTER when `sink` is null,
    /// and what `sink` gives when that is a failure. A part of the rule that cannot be read is in
    /// the log.
    virtual HRESULT DescribeRule(BSTR ruleId, IDescriptionSink *sink) noexcept = 0;

protected:
    ~IRuleReader() = default;
};
