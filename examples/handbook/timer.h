#ifndef TIMER_H
#define TIMER_H

/*!!
 * \h1 timer.h
 *
 * The timer of the \xref{index}{kettle}.
 */

/*!
 * \h1 \this
 * \brief Starts the timer.
 *
 * \synopsis
 *
 * \param{seconds} how long the kettle boils, at most 600.
 *
 * \return 0, or -1 if there is no water in the kettle.
 * \sa \xref{timer_stop}, \xref{timer_h}{timer.h}
 */
int timer_start(int seconds);

/*!
 * \h1 \this
 * \brief Stops the timer early.
 *
 * \synopsis
 *
 * \sa \xref{timer_start}, \xref{timer_h}{timer.h}
 */
void timer_stop(void);

#endif
