/*
 * The end of a command that has no memory left.
 */
#pragma once

/**
 * From now on, a failed allocation ends the program with a sentence on standard error and the exit
 * code 2, in every thread. Without this, parts of the library and of Qt would continue without what
 * they could not store.
 */
void endWhenOutOfMemory();
