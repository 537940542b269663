// Under the address sanitizer, malloc and calloc yield null above a limit, so that tests can see memory run out.
#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define TALQ_ALLOCATION_LIMIT_MIB 1024
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TALQ_ALLOCATION_LIMIT_MIB 1024
#endif
#endif
