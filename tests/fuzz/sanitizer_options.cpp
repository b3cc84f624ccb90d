// How the address sanitizer works in the fuzz targets; ASAN_OPTIONS has the last word.

// Most of a sanitized run's time goes into allocation. The stacks that are kept with it are short (two
// frames are what the search for leaks needs), and so is the quarantine: a larger one takes fresh
// memory for the store of each run. To see where a finding's memory came from, run it again with
// ASAN_OPTIONS=malloc_context_size=30.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
    return "malloc_context_size=2:quarantine_size_mb=4";
}
