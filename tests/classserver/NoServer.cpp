// A library that can be loaded and is no server.
extern "C" __attribute__((visibility("default"))) int noServer() {
    return 0;
}
