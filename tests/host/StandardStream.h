// Connects a standard stream of the test program to another file for a while.
#pragma once

#include <unistd.h>

namespace kvex::host {

class StandardStream {
public:
    /// `stream` is `replacement` from now on.
    StandardStream(int stream, int replacement) : stream_(stream), before_(dup(stream)) {
        dup2(replacement, stream);
    }
    ~StandardStream() {
        dup2(before_, stream_);
        close(before_);
    }
    StandardStream(const StandardStream &) = delete;
    StandardStream &operator=(const StandardStream &) = delete;

private:
    int stream_;
    int before_;
};

} // namespace kvex::host
