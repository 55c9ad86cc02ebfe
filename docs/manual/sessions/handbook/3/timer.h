#ifndef TIMER_H
#define TIMER_H

/*! \overview
 *
 * The timer of the kettle: start it, and it switches the kettle off.
 */

/*!
 * \brief Starts the timer.
 *
 * \synopsis
 *
 * \description
 * The kettle boils until the time is up, or until you call
 * \xref{timer_stop}.
 *
 * \param{seconds} how long it boils, 600 at most.
 *
 * \return 0, or -1 if there is no water in the kettle.
 *
 * \code
 * if (timer_start(3 * 60) != 0)
 *     puts("Please fill the kettle.");
 * \endcode
 */
int timer_start(int seconds);

/*!
 * \brief Switches the kettle off.
 *
 * \synopsis
 *
 * \note
 * If the kettle is off, nothing happens.
 */
void timer_stop(void);

#endif
