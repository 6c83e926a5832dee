#include "bench/support/BenchSession.h"

#include "adapters/sqlite/Provider.h"
#include "platform/Text.h"

#include <stdexcept>
#include <utility>

namespace kvex::bench {
namespace {

test::UtilityRecord recordFor(std::u16string connectionString) {
    test::UtilityRecord record;
    record.connectionString = std::move(connectionString);
    return record;
}

} // namespace

BenchSession::BenchSession(std::u16string connectionString)
    : BenchSession(std::move(connectionString), headless, sqlite::provider()) {}

BenchSession::BenchSession(std::u16string connectionString, Toolkit &toolkit)
    : BenchSession(std::move(connectionString), toolkit, sqlite::provider()) {}

BenchSession::BenchSession(std::u16string connectionString, recordset::Provider provider)
    : BenchSession(std::move(connectionString), headless, std::move(provider)) {}

BenchSession::BenchSession(std::u16string connectionString, Toolkit &toolkit,
                           recordset::Provider provider)
    : utility_(recordFor(std::move(connectionString))),
      platform_(utility_, toolkit, std::move(provider)), sessionOwner_(platform_) {}

BenchSession::~BenchSession() {
    sessionOwner_.release();
}

void BenchSession::open() {
    sessionOwner_.OpenRules();
    requireNoError();
}

void BenchSession::showRules() {
    sessionOwner_.ShowRules(u"1", u"");
    requireNoError();
}

void BenchSession::playRules(test::Script script) {
    headless.whenShown(u"frmRuleEdit", [](test::User &editor) { editor.press(test::Key::escape); });
    headless.whenShown(u"frmRules", std::move(script));
    showRules();
}

void BenchSession::requireNoError() const {
    if (!headless.problems().empty()) {
        throw std::runtime_error(headless.problems().front());
    }
    if (!utility_.log.empty()) {
        const test::LogEntry &entry = utility_.log.front();
        throw std::runtime_error(toUtf8(entry.text) + ": " + toUtf8(entry.description));
    }
}

} // namespace kvex::bench
