// examples/Arguments.h - what an example says when it is called in another way than it must be.
#ifndef VEXPA_EXAMPLES_ARGUMENTS_H_
#define VEXPA_EXAMPLES_ARGUMENTS_H_

#include <cstdio>

// Says how it is called. The exit status for that.
inline int Usage(const char* call) {
    std::fprintf(stderr, "usage: %s\n", call);
    return 2;
}

#endif  // VEXPA_EXAMPLES_ARGUMENTS_H_
