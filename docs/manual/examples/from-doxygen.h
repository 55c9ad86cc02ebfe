/**
 * @brief Starts the timer.
 *
 * The kettle boils until the time is up, or until
 * @ref timer_stop is called.
 *
 * @param seconds  how long it boils, 600 at most
 * @return 0, or -1 if there is no water
 * @note Not safe in a signal handler.
 * @see timer_stop()
 */
int timer_start(int seconds);
