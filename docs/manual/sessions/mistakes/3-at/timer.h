/**
 * @brief Switches the kettle off.
 */
void timer_stop(void);

/*!
 * @brief Starts the timer.
 * @param seconds how long it boils
 * @return 0 on success
 */
int timer_start(int seconds);
