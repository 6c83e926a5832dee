#include "rules/DescriptionLists.h"

#include "component/session/ErrorTrap.h"
#include "platform/Error.h"
#include "platform/StoredMoment.h"
#include "platform/Text.h"
#include "rules/Lookups.h"

#include <algorithm>

namespace kvex {
namespace {

constexpr std::u16string_view andSeparator = u" and ";

std::u16string_view separatorFor(std::int16_t all) {
    return all == 1 ? andSeparator : u" or ";
}

/// Joins the items of `list`. Traps a failure under the name `sub`.
std::u16string joinedList(std::u16string_view sub, std::u16string_view list,
                          std::u16string_view separator) {
    std::u16string result;
    trapErrors(sub, u"General", [&] {
        const auto separators = static_cast<std::size_t>(std::ranges::count(list, u';'));
        result.resize(list.size() - separators + separators * separator.size());
        auto end = result.begin();
        for (const char16_t unit : list) {
            if (unit == u';') {
                end = std::ranges::copy(separator, end).out;
            } else {
                *end++ = unit;
            }
        }
    });
    return result;
}

/// Joins what `shown` returns for each item of `list`. Traps a failure under the name `sub`.
template <class Shown>
std::u16string joinedList(std::u16string_view sub, std::u16string_view list,
                          std::u16string_view separator, Shown &&shown) {
    std::u16string result;
    trapErrors(sub, u"General", [&] {
        if (list.empty()) {
            return;
        }
        bool first = true;
        for (const std::u16string_view item : split(list, u';')) {
            // The item is shown before the separator is added, so an item that fails leaves no
            // separator behind.
            const auto text = shown(item);
            result.append(first ? u"" : separator).append(text);
            first = false;
        }
    });
    return result;
}

constexpr auto accountName = [](std::u16string_view id) { return GetAccountName(toInt32(id)); };
constexpr auto userName = [](std::u16string_view id) { return GetUserName(toInt32(id)); };

} // namespace

std::u16string BuildPeopleList(const RuleState &rule) {
    return joinedList(u"BuildPeopleList", rule.strPeople, separatorFor(rule.intPeopleAll));
}

std::u16string BuildAccountList(const RuleState &rule) {
    return joinedList(u"BuildAccountList", rule.varAccounts, separatorFor(rule.intAccountAll),
                      accountName);
}

std::u16string BuildWordList(const RuleState &rule) {
    return joinedList(u"BuildWordList", rule.strWords, separatorFor(rule.intWordsAll));
}

std::u16string BuildDistributionList(const RuleState &rule) {
    return joinedList(u"BuildDistributionList", rule.strDistribution, andSeparator, userName);
}

std::u16string BuildAlertList(const RuleState &rule) {
    return joinedList(u"BuildAlertList", rule.strAlertRecipients, andSeparator);
}

std::u16string BuildDateTimeList(const RuleState &rule) {
    std::u16string result;
    trapErrors(u"BuildDateTimeList", u"General", [&] {
        const std::u16string_view stored = rule.strDateTime;
        if (stored.empty()) {
            return;
        }
        const StoredRange range = storedRange(stored);
        const auto start = shownMoment(range.start);
        result = start + u" to " + shownMoment(range.end);
    });
    return result;
}

} // namespace kvex
