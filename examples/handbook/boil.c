#include "timer.h"

// Boils for three minutes.
int boil(void)
{
    return timer_start(3 * 60);
}
