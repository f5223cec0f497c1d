// How the sanitizers run in every test: errors abort, and the leaks of the runtime, of Foundation and of
// fontconfig, which keep what they made until the process ends, are not ours.

extern "C" {

__attribute__((used)) const char* __asan_default_options() { return "abort_on_error=1:detect_leaks=1"; }

__attribute__((used)) const char* __ubsan_default_options() { return "abort_on_error=1:print_stacktrace=1"; }

__attribute__((used)) const char* __lsan_default_suppressions() {
    return "leak:libobjc\n"
           "leak:libgnustep-base\n"
           "leak:libfontconfig\n";
}

__attribute__((used)) const char* __lsan_default_options() { return "print_suppressions=0"; }
}
