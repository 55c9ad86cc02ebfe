/*! \overview
 *
 * The states of the kettle:
 *
 * \table{1.5in,*}
 * || Macro | The kettle
 * | \tt{KETTLE_OFF} | is off
 * | \tt{KETTLE_HEATING} | heats the water
 * | \tt{KETTLE_READY} | keeps it hot
 * \endtable
 */
#define KETTLE_OFF 0
#define KETTLE_HEATING 1
#define KETTLE_READY 2

/*!
 * \brief Compares the temperatures of two kettles.
 *
 * \synopsis
 *
 * \rv
 *
 * \table{1in,*}
 * || Value | Meaning
 * | negative | \a{first} is colder than \a{second}
 * | 0 | both are equally warm
 * | positive | \a{first} is warmer
 * \endtable
 */
int kettle_compare(int first, int second);
