// A private display for a test program: a virtual X server that runs as long as this object lives.
#pragma once

#include <sys/types.h>

#include <string>

namespace kvex::test {

/// Sets DISPLAY to the server, and makes Qt use it. The sizes of windows are not remembered. Throws
/// when the server cannot start.
class VirtualDisplay {
public:
    explicit VirtualDisplay(const std::string &size = "1280x1024");
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay &) = delete;
    VirtualDisplay &operator=(const VirtualDisplay &) = delete;

private:
    pid_t server_ = -1;
};

} // namespace kvex::test
