// Empty: the precompiled headers of all tests need a source file.
