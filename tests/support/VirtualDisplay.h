// A display of a test program's own: a virtual X server that lives as long as this object.
#pragma once

#include <sys/types.h>

#include <string>

namespace kvex::test {

/// Points DISPLAY at the server, and Qt at DISPLAY; the sizes of windows are not remembered.
/// Throws where the server cannot be started.
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
