#ifdef __SANITIZE_ADDRESS__

// What the TLS library keeps for a connection that failed or was cut off stays with it until the
// process ends. Everything else that is left behind fails the tests.
extern "C" const char* __lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier)

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libcrypto\nleak:libssl\n";
}

#endif
