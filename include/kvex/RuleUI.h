// The public contract of the component: the class RuleUI and its interfaces.
//
// A host first serves the utility object (CLSID_Utility, kvex/HostSuite.h). Then it creates RuleUI
// by its class id or its name, "KVEXMessageRules.RuleUI". The creation fails with 0x800A01AD (error
// 429) when nobody serves a utility object.
//
// Errors go to the log of the utility object. When writing to the log fails, the call that met the
// error fails with 0x800A01B8 (error 440).
//
// Threads: an object belongs to the thread that created it. Call and release it there. A call from
// another thread fails with RPC_E_WRONG_THREAD, and standard error says which thread owns the
// object. Several threads may each have an object and call it at the same time. Two objects on one
// thread share one session, so have one at a time.
//
// Releasing the object closes its database. Released on another thread, the database stays open
// until the owning thread creates the next object or ends.
#pragma once

#include "kvex/Component.h"

inline constexpr char16_t RuleUIProgramId[] = u"KVEXMessageRules.RuleUI";

inline constexpr CLSID CLSID_RuleUI{
    0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x01}};

/// What IRuleUI::ShowRules stores in `*result`.
namespace kvex::show_rules {
inline constexpr LONG failed = 0;
inline constexpr LONG noEditNoted = 1;
inline constexpr LONG editNoted = 99;
} // namespace kvex::show_rules

/// The default interface.
struct IRuleUI : IUnknown {
    static constexpr IID iid{
        0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x02}};
    /// Shows the rules in the name of the user `userId` until the window is closed. The rule editor
    /// opens at once: on the rule with the id `ruleId`, or on a new rule when `ruleId` is "".
    ///
    /// `*result`:
    /// - 99: the user may have edited something. The user may also have cancelled the edit. An edit
    ///   that an earlier call on this thread noted counts until the editor opens.
    /// - 1: no edit was noted. The user may still have removed rules. They may also have switched
    ///   or moved rules and then opened the editor, which forgets all earlier notes.
    /// - 0: the session could not be opened or the window could not be shown. The log says why.
    ///
    /// So a host reloads its rules after every call whose result is not 0.
    ///
    /// Windows belong to the thread that showed the first window of the process, or that made the
    /// program's QApplication. On any other thread the result is 0, and the log names that thread.
    ///
    /// The call returns when the window is closed. Until then it runs the thread's event loop, so
    /// the host's own windows and timers on this thread go on. Do not call it again before it
    /// returns. A second call on the same object has the result 0, because its session stays open
    /// until the object is released. Fails with E_POINTER when `result` is null.
    virtual HRESULT ShowRules(BSTR userId, BSTR ruleId, LONG *result) noexcept = 0;

protected:
    ~IRuleUI() = default;
};

/// Receives the description of a rule piece by piece. The host implements it.
struct IDescriptionSink : IUnknown {
    static constexpr IID iid{
        0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x03}};
    /// Receives `text` in one colour, 0x00BBGGRR: 0 (fixed words), 0xFF0000 (values) or 255
    /// (remarks). Lines are separated by CR LF. The text is valid during the call. A failed result
    /// ends the description.
    virtual HRESULT Write(BSTR text, LONG colour) noexcept = 0;

protected:
    ~IDescriptionSink() = default;
};

/// Reads rules without a window, for terminals and reports, and needs no display. QueryInterface on
/// an object of the class gives it.
struct IRuleReader : IUnknown {
    static constexpr IID iid{
        0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x04}};
    /// Opens the session as ShowRules does, without a window. Fails with E_FAIL when the session
    /// cannot be opened or is already open. The log says why.
    virtual HRESULT OpenRules() noexcept = 0;
    /// Describes the rule with the id `ruleId` as the rules window shows it. The first line follows
    /// the stored ACTIVE. Gives S_FALSE and writes nothing when no rule has this id, or when the
    /// text is no id. Fails with E_UNEXPECTED while no session is open, and with E_POINTER when
    /// `sink` is null. A failure of `sink` is passed on. A part of the rule that cannot be read is
    /// in the log. It shows what was stored when the session opened.
    virtual HRESULT DescribeRule(BSTR ruleId, IDescriptionSink *sink) noexcept = 0;

protected:
    ~IRuleReader() = default;
};
