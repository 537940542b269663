#include "tests/unit/support/allocation_limit.h"

#ifdef TALQ_ALLOCATION_LIMIT_MIB

#define TEXT_OF(value) #value
#define OPTIONS(limit) "allocator_may_return_null=1:max_allocation_size_mb=" TEXT_OF(limit)

// The name is the sanitizer's.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" const char* __asan_default_options() { return OPTIONS(TALQ_ALLOCATION_LIMIT_MIB); }

#endif
