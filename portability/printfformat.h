#pragma once

/**
 * Lets compilers that can do so check the arguments from number `firstArgument` on against the
 * format that is argument number `formatIndex`.
 */
#if defined(__GNUC__)
#define PRINTF_FORMAT(formatIndex, firstArgument)                                                  \
    __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define PRINTF_FORMAT(formatIndex, firstArgument)
#endif
