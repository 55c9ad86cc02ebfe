#include "site/command/site_command.h"

int main(int argc, char *argv[])
{
    return tavidoc::siteCommand(argc, argv);
}
