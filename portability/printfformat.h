#pragma once

/**
 * The arguments from number `firstArgument` on belong to the format that is argument `formatIndex`;
 * compilers that can check them.
 */
#if defined(__GNUC__)
#define PRINTF_FORMAT(formatIndex, firstArgument)                                                  \
    __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define PRINTF_FORMAT(formatIndex, firstArgument)
#endif
