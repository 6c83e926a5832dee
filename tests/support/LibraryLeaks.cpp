// What the system's libraries keep until a process ends is no leak of the project's. Read by the
// leak sanitizer, where the program is built with it.
// NOLINTBEGIN(bugprone-reserved-identifier): the name is the sanitizer's.
extern "C" const char *__lsan_default_suppressions();
extern "C" __attribute__((visibility("default"))) const char *__lsan_default_suppressions() {
    return "leak:libfontconfig.so\n"
           "leak:libdbus-1.so\n";
}
// NOLINTEND(bugprone-reserved-identifier)
