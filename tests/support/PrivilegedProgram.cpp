#include "tests/support/PrivilegedProgram.h"

#include <cstdlib>

namespace kvex::test {
namespace {

bool isPrivileged = false;

} // namespace

PrivilegedProgram::PrivilegedProgram() {
    isPrivileged = true;
}

PrivilegedProgram::~PrivilegedProgram() {
    isPrivileged = false;
}

} // namespace kvex::test

/// Replaces the system's function in this program.
extern "C" char *secure_getenv(const char *name) noexcept {
    return kvex::test::isPrivileged ? nullptr : std::getenv(name);
}
