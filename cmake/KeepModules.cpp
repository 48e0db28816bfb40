// In place of the C library's dlclose(3) in the builds under a sanitizer: a module stays where
// it was loaded. What it leaves behind has then a name in the report of leaks, by which
// tools/leaks.supp can forgive it; of an unloaded one only "unknown module" is left.
extern "C" int dlclose(void*) {
    return 0;
}
