#include "tests/torture/monkey/Watch.h"

#include "platform/Text.h"

#include <algorithm>

namespace kvex::torture {

Counts &Counts::operator+=(const Counts &more) {
    events += more.events;
    sessions += more.sessions;
    saves += more.saves;
    ticks += more.ticks;
    removals += more.removals;
    orders += more.orders;
    errors += more.errors;
    return *this;
}

void Watch::report(const std::string &finding) {
    if (finding_.empty()) {
        finding_ = finding;
    }
}

void Watch::hears(const Event &event) {
    ++counts_.events;
    now_.oddTexts |= event.text.find_first_of(u";<>") != std::u16string::npos;
    now_.apostrophes |= event.text.find(u'\'') != std::u16string::npos;
    now_.missingTimes |= event.kind == EventKind::tickPicker;
    // The rule is read again when it is saved.
    now_.listEnds |= event.kind == EventKind::otherUnranks;
    now_.disturbed |= isOtherProgram(event.kind);
    otherWrote_ |= isOtherProgram(event.kind) && event.kind != EventKind::otherLocks &&
                   event.kind != EventKind::otherFrees;
}

void Watch::sessionOpens(const Event &event, std::int64_t rule) {
    ++counts_.sessions;
    last_ = world_.tables();
    now_.disturbed = world_.isLocked();
    otherWrote_ = false;
    now_.beganEmpty = last_.rules.empty();
    now_.listEnds = std::ranges::any_of(
        last_.rules, [](const auto &entry) { return entry.second.priority == u"NULL"; });
    now_.unlisted = rule != 0 && (now_.listEnds || !last_.rules.contains(rule));
    now_.cannotOpen = event.kind != EventKind::open;
}

void Watch::sessionEnds(std::int32_t result) {
    const bool failed = readLog();
    checkProblems();
    checkChange({}, world_.tables());
    // A session that cannot open gives 0 and logs why.
    if (now_.cannotOpen ? result != 0 || !failed : !noted_.allow(result)) {
        report("result: ShowRules gave " + std::to_string(result));
    }
    last_ = world_.tables();
}

void Watch::windowOpens(const headless::HeadlessWindow &window) {
    readLog();
    checkProblems();
    checkChange({.window = window.name()}, world_.tables());
    noted_.windowOpens(window.name());
}

void Watch::actEnds(const Act &act, const Event &event, const headless::HeadlessWindow &window) {
    const bool failed = readLog();
    checkProblems();
    const Tables &now = world_.tables();
    checkChange(act, now);
    checkOutcome(act, {.before = last_,
                       .now = now,
                       .failed = failed,
                       .closed = !window.isOpen(),
                       .beganEmpty = now_.beganEmpty});
    noted_.happened(event, window.name());
    count(act, now);
    last_ = now;
    if (window.name() == u"frmRules" && window.isOpen() && !now_.disturbed) {
        report(wrongList(window, now));
    }
}

void Watch::otherActed() {
    last_ = world_.tables();
}

bool Watch::readLog() {
    for (const test::LogEntry &entry : utility_.log) {
        ++counts_.errors;
        if (!isExpected(entry, now_)) {
            report("log: " + toUtf8(entry.text) + ": error " + std::to_string(entry.number) + ": " +
                   toUtf8(entry.description));
        }
    }
    for (const test::Report &entry : utility_.reports) {
        if (!isExpected(entry)) {
            report("report: " + toUtf8(entry.text));
        }
    }
    const std::vector<Error> &unhandled = toolkit_.unhandledErrors();
    const bool failed = !utility_.log.empty() || unhandled.size() > unhandled_;
    for (; unhandled_ < unhandled.size(); ++unhandled_) {
        ++counts_.errors;
        if (!isExpected(unhandled[unhandled_], now_)) {
            report(std::string("handler: ") + unhandled[unhandled_].what());
        }
    }
    utility_.log.clear();
    utility_.reports.clear();
    utility_.messages.clear();
    return failed;
}

void Watch::checkProblems() {
    for (; problems_ < toolkit_.problems().size(); ++problems_) {
        report("problem: " + toolkit_.problems()[problems_]);
    }
}

void Watch::checkChange(const Act &act, const Tables &now) {
    const std::string text = difference(permitted(act, last_, now), now);
    if (!text.empty()) {
        report("change: an event in " + toUtf8(act.window) +
               " changed what is not its own:" + text);
    }
}

void Watch::checkOutcome(const Act &act, const Outcome &outcome) {
    // A lock stops an order between two rules. What another program writes can do more.
    if (act.kind == Act::Kind::order ? otherWrote_ : now_.disturbed) {
        return;
    }
    report(wrongOutcome(act, outcome));
    // The check describes the rule, which may have logged an account without a name.
    utility_.log.clear();
}

void Watch::count(const Act &act, const Tables &now) {
    if (now == last_) {
        return;
    }
    switch (act.kind) {
    case Act::Kind::activation:
        ++counts_.ticks;
        break;
    case Act::Kind::removal:
        ++counts_.removals;
        break;
    case Act::Kind::saving:
        ++counts_.saves;
        break;
    case Act::Kind::order:
        ++counts_.orders;
        break;
    case Act::Kind::none:
        break;
    }
}

} // namespace kvex::torture
