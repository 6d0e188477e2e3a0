// Nothing: the headers that the build precompiles for all tests need a source to go with.
