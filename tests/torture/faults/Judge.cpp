#include "tests/torture/faults/Judge.h"

#include "platform/Text.h"
#include "tests/databases/SqliteFixture.h"
#include "tests/torture/storage/Snapshot.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace kvex::torture {
namespace {

/// True when at most one row of the rules differs, and nothing else but the number for new rows.
bool isOneRow(const std::string &before, const std::string &after) {
    std::istringstream lines(difference(before, after));
    int removed = 0;
    int added = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("- SMS_RULES: ")) {
            ++removed;
        } else if (line.starts_with("+ SMS_RULES: ")) {
            ++added;
        } else if (line.find(" sqlite_sequence: ") == std::string::npos) {
            return false;
        }
    }
    return removed <= 1 && added <= 1;
}

} // namespace

Judge::Judge(const Scenario &scenario, const std::filesystem::path &database,
             const std::filesystem::path &folder)
    : scenario_(scenario), before_(snapshot(database)) {
    const FaultKind anyKind = faultKinds().front();
    const Course course = playUser({scenario, anyKind, noPoint}, database, folder);
    after_ = course.afterFirst;
    if (course.hasStruck || course.wasTold || !course.failure.empty() || after_ == before_ ||
        course.afterSecond != (scenario.toggles ? before_ : after_)) {
        throw std::runtime_error(scenario.name + " without a fault:\n" + course.failure +
                                 difference(after_, course.afterSecond));
    }
    if (scenario.rowByRow.empty()) {
        if (!isOneRow(before_, after_)) {
            throw std::runtime_error(scenario.name + ": other rows changed, too:\n" +
                                     difference(before_, after_));
        }
        return;
    }
    const std::filesystem::path file = folder / "partly.db";
    std::filesystem::copy_file(database, file, std::filesystem::copy_options::overwrite_existing);
    for (const std::string &statement : scenario.rowByRow) {
        test::OtherProgram(file).run(u"PRAGMA synchronous = OFF; " + fromUtf8(statement));
        partly_.push_back(snapshot(file));
    }
    if (partly_.back() != after_) {
        throw std::runtime_error(scenario.name + " row by row:\n" +
                                 difference(after_, partly_.back()));
    }
}

bool Judge::isAllowed(const FaultKind &kind, const std::string &held) const {
    return held == before_ || held == after_ ||
           (!kind.expected.keepsOrder && std::ranges::count(partly_, held) > 0);
}

std::string Judge::finding(const FaultKind &kind, const Course &course) const {
    if (!course.failure.empty()) {
        return course.failure;
    }
    if (!isAllowed(kind, course.afterFirst)) {
        return "neither the old state nor the new one:\n" + difference(before_, course.afterFirst);
    }
    if (!course.wasTold && kind.expected.canTell && course.afterFirst != after_) {
        return "nobody was told that it is not stored:\n" + difference(after_, course.afterFirst);
    }
    if (!isAllowed(kind, course.afterSecond)) {
        return "neither the old state nor the new one after the second press:\n" +
               difference(before_, course.afterSecond);
    }
    if (kind.expected.passes && !scenario_.toggles && course.afterSecond != after_) {
        return "the second press did not store it, though nothing failed any more:\n" +
               difference(after_, course.afterSecond);
    }
    return {};
}

} // namespace kvex::torture
