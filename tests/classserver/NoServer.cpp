// A library that loads but is no component server.
extern "C" __attribute__((visibility("default"))) int noServer() {
    return 0;
}
