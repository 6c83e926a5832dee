// When memory runs out, each list builder traps that under its own name.
#include "rules/DescriptionLists.h"
#include "tests/support/ComponentTest.h"

#include <cstdlib>
#include <limits>
#include <new>

namespace {

/// On this thread, allocations of this many bytes or more fail.
thread_local std::size_t refusedFrom = std::numeric_limits<std::size_t>::max();

} // namespace

void *operator new(std::size_t size) {
    void *memory = size < refusedFrom ? std::malloc(size == 0 ? 1 : size) : nullptr;
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}
void operator delete(void *memory) noexcept {
    std::free(memory);
}
void operator delete(void *memory, std::size_t) noexcept {
    std::free(memory);
}

namespace kvex::test {
namespace {

/// Longer than any text of a log entry.
const std::u16string longItem(5000, u'9');

struct Builder {
    const char *name;
    std::u16string (*build)(const RuleState &);
    std::u16string RuleState::*list;
};

class NoMemory : public ComponentTest, public testing::WithParamInterface<Builder> {
protected:
    NoMemory() { openSession(); }
    ~NoMemory() override { refusedFrom = std::numeric_limits<std::size_t>::max(); }
};

TEST_P(NoMemory, IsLoggedUnderTheBuildersNameAndGivesNoText) {
    const auto &[name, build, list] = GetParam();
    ruleState().*list = longItem + u";" + longItem;
    refusedFrom = longItem.size();
    const std::u16string built = build(ruleState());
    refusedFrom = std::numeric_limits<std::size_t>::max();
    EXPECT_EQ(built, u"");
    expectLog({u"Sub: " + std::u16string(name, name + std::string_view(name).size()) +
               u", Module: General"});
    EXPECT_EQ(logged.at(0).number, error_number::outOfMemory);
}

INSTANTIATE_TEST_SUITE_P(
    EachBuilder, NoMemory,
    testing::Values(Builder{"BuildPeopleList", BuildPeopleList, &RuleState::strPeople},
                    Builder{"BuildWordList", BuildWordList, &RuleState::strWords},
                    Builder{"BuildAlertList", BuildAlertList, &RuleState::strAlertRecipients}),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
} // namespace kvex::test
