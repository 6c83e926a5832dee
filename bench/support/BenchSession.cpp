#include "bench/support/BenchSession.h"

#include "platform/Text.h"

#include <stdexcept>

namespace kvex::bench {
namespace {

test::UtilityRecord recordFor(std::u16string connectionString) {
    test::UtilityRecord record;
    record.connectionString = std::move(connectionString);
    return record;
}

} // namespace

BenchSession::BenchSession(std::u16string connectionString)
    : BenchSession(std::move(connectionString), headless) {}

BenchSession::BenchSession(std::u16string connectionString, Toolkit &toolkit)
    : utility_(recordFor(std::move(connectionString))), platform_(utility_, toolkit),
      ruleUI_(platform_) {}

BenchSession::~BenchSession() {
    ruleUI_.release();
}

void BenchSession::open() {
    ruleUI_.OpenRules();
    requireNoError();
}

void BenchSession::showRules() {
    ruleUI_.ShowRules(u"1", u"");
    requireNoError();
}

void BenchSession::requireNoError() const {
    if (!utility_.log.empty()) {
        const test::LogEntry &entry = utility_.log.front();
        throw std::runtime_error(toUtf8(entry.text) + ": " + toUtf8(entry.description));
    }
}

} // namespace kvex::bench
