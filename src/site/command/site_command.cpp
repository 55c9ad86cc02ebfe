#include "site/command/site_command.h"

#include <cstdio>

namespace tavidoc {

int siteCommand(int, char *[])
{
    std::fputs("tavidoc-site " TAVIDOC_VERSION "\n", stdout);
    return 0;
}

} // namespace tavidoc
