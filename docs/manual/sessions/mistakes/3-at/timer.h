/**
 * @brief Starts the timer.
 * @param seconds how long it boils
 */
int timer_start(int seconds);

/*!
 * Switches the kettle off.
 * @return nothing
 */
void timer_stop(void);
