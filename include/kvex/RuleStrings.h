// A rule's two stored strings as fields, and back: reads, writes and checks rules as the editor
// does.
//
// Fields, in the order in which Read passes them. A list gives one field for each entry.
//
//   `allMessages`          YES or NO.
//   `ignoreIfService`      The stored text.
//   `people.not`           YES or NO.
//   `people.all`           YES or NO.
//   `people.entries`       A list of mobile numbers.
//   `accounts.not`         As for people, and so on.
//   `accounts.all`
//   `accounts.entries`     A list of ids of accounts.
//   `words.not`
//   `words.all`
//   `words.asCommand`      YES or NO.
//   `words.entries`        A list.
//   `dateTime`             "yyyymmdd hh:mm:ss,yyyymmdd hh:mm:ss".
//   `distribution`         A list of ids of users.
//   `reply.text`
//   `reply.account`        An id of an account.
//   `alert.text`
//   `alert.account`        An id of an account.
//   `alert.recipients`     A list of mobile numbers.
//   `delete`               The stored text.
//   `ignoreFurtherRules`   The stored text.
//
// YES means yes; any other value means no. Values are as they are stored, so a number or a date may
// be any other text.
#pragma once

#include "kvex/Component.h"

/// The caller owns both texts.
struct RuleField {
    BSTR name;
    BSTR value;
};

/// Receives the fields of a rule. A failed result ends the reading.
struct IRuleFieldSink : IUnknown {
    static constexpr IID iid{
        0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x05}};
    /// Receives one value. A list gives one call for each entry, and none when it is empty. Ignore
    /// the names that you do not know: a later component may have more fields. The texts are valid
    /// during the call.
    virtual HRESULT Field(BSTR name, BSTR value) noexcept = 0;
    /// The reading ended early, at the tag `tag`, for example PEOPLE. It comes after all fields.
    /// `number` is 5 when no closing tag follows the opening one. It is 6 when a tag stands beyond
    /// the position 32767. Tags that are read later, and ActionParam after an error in QueryParam,
    /// were not read.
    virtual HRESULT EndedEarly(LONG number, BSTR tag) noexcept = 0;

protected:
    ~IRuleFieldSink() = default;
};

/// Reads, writes and checks rules as the editor does. QueryInterface on an object of the class
/// RuleUI gives it. It needs no window, no display and no open session, and keeps nothing between
/// calls.
struct IRuleStrings : IUnknown {
    static constexpr IID iid{
        0x2E9C6A10, 0x5D43, 0x4B7B, {0x8A, 0x60, 0x1F, 0x0D, 0x7C, 0x35, 0xB2, 0x06}};
    /// Passes every field to `sink`. A field whose tag is missing or was not read has the value of
    /// a new rule: NO for yes or no, an empty list, or "". The result is S_FALSE when the reading
    /// ended early; `sink` then also gets EndedEarly. Fails with E_POINTER when `sink` is null. A
    /// failure of `sink` is passed on.
    virtual HRESULT Read(BSTR queryParam, BSTR actionParam, IRuleFieldSink *sink) noexcept = 0;
    /// Gives the strings that the editor stores for a rule with these fields. A missing field has
    /// the value of a new rule. Entries of a list stand in the order of their fields; of any other
    /// field the last one counts. Nothing is escaped. So Read may not give the same fields again:
    /// for example, blanks around a value are lost, and ";" in an entry makes two of it.
    ///
    /// Fails with E_INVALIDARG for an unknown name. Fails with E_POINTER when a result is null, and
    /// when `fields` is null and `count` is not 0.
    virtual HRESULT Write(const RuleField *fields, ULONG count, BSTR *queryParam,
                          BSTR *actionParam) noexcept = 0;
    /// Checks the rule as OK in the editor does. Gives S_OK and null when the editor would store
    /// the rule, else S_FALSE and the message that it would show. The caller says whether the name
    /// is taken: see GetNameKeys. The ticks are those with which the editor opens on such a rule.
    /// Fails as Write does.
    virtual HRESULT Check(BSTR name, VARIANT_BOOL nameIsTaken, const RuleField *fields, ULONG count,
                          BSTR *message) noexcept = 0;
    /// Gives what the editor compares to find out whether a name is taken. The user types a name,
    /// and a rule has a stored one. The name is taken when the `typed` key of the first equals the
    /// `stored` key of the second. The editor does not compare a name that the user left unchanged.
    /// It cannot search for an apostrophe: then `*typed` is null, the result is S_FALSE, and the
    /// editor refuses the name unless it is unchanged. Fails with E_POINTER when a result is null.
    virtual HRESULT GetNameKeys(BSTR name, BSTR *typed, BSTR *stored) noexcept = 0;

protected:
    ~IRuleStrings() = default;
};
