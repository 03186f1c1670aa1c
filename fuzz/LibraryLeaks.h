#pragma once

/// The compound-file library forgets the entries that a damaged directory hangs beside its root: some bytes an entry,
/// of at most ten thousand. Its own allocations are left out of the search for leaks, all others are in it. Included by
/// one source of a fuzzer that opens compound files; the test that replays inputs of all fuzzers includes it itself.
#ifndef BRACKWATER_REPLAY
extern "C" const char* __lsan_default_suppressions(); // NOLINT(bugprone-reserved-identifier): the sanitizer's name
extern "C" const char* __lsan_default_suppressions() { return "leak:g_malloc\nleak:g_utf16_to_utf8\n"; }
#endif
