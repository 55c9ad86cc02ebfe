/*!
 * \h1 \this
 * \brief Heats the water and keeps it hot.
 *
 * \synopsis
 *
 * \param{degrees} the temperature in degrees
 * Celsius, from 30 to 100.
 *
 * \param{minutes} how long to keep the water hot.
 *
 * \rv
 * \return 0 on success, otherwise an error code.
 *
 * \task Example
 * \code
 *     if (\this(96, 10) != 0)
 *         call_service();
 * \endcode
 */
int kettle_heat(int degrees, int minutes);
