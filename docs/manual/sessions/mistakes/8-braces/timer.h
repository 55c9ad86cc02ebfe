/*!
 * Starts the timer.
 *
 * \param seconds how long it boils
 */
int timer_start(int seconds);
