// Lets a test program count as one that has more rights than its user.
#pragma once

namespace kvex::test {

/// While it lives, secure_getenv() gives nothing. Link PrivilegedProgram.cpp.
class PrivilegedProgram {
public:
    PrivilegedProgram();
    ~PrivilegedProgram();
    PrivilegedProgram(const PrivilegedProgram &) = delete;
    PrivilegedProgram &operator=(const PrivilegedProgram &) = delete;
};

} // namespace kvex::test
