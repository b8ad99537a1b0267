#include "fuzztargets.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

FuzzTargets::Target FuzzTargets::byName(const QByteArray &name)
{
    static const std::pair<const char *, Target> targets[] = {
            {"library", library},         {"bodies", bodies}, {"sensors", sensors},
            {"filters", filters},         {"angles", angles}, {"scenario", scenario},
            {"preferences", preferences}, {"script", script}, {"recording", recording},
            {"faultrule", faultrule},
    };
    for (const auto &target : targets) {
        if (name == target.first)
            return target.second;
    }
    return nullptr;
}

void FuzzTargets::expect(bool isTrue, const char *what)
{
    if (isTrue)
        return;
    std::fprintf(stderr, "not so: %s\n", what);
    std::abort();
}
