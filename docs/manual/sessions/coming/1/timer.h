/*!
 * \brief Starts the timer.
 *
 * \synopsis
 *
 * The kettle boils until the time is up, or until
 * \xref{timer_stop} is called.
 *
 * \param{seconds} how long it boils, 600 at most
 * \return 0, or -1 if there is no water
 * \note Not safe in a signal handler.
 * \sa \xref{timer_stop}
 */
int timer_start(int seconds);

/*!
 * \brief Switches the kettle off.
 */
void timer_stop(void);
