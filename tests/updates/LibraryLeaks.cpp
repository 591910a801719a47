#ifdef __SANITIZE_ADDRESS__

// The TLS library keeps a random generator and a queue of errors for each thread and frees them as
// the thread's last act. The toolkit counts its network thread as finished before that, so a test
// that ends at once may be looked through for leaks while they are still there. Everything else
// that is left behind fails the tests.
extern "C" const char* __lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier)

extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libcrypto\nleak:libssl\n";
}

#endif
