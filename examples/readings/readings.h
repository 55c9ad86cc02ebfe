#ifndef READINGS_H
#define READINGS_H

#include <cstddef>

/*!!
 * The last readings of a sensor.
 */

namespace readings {

/*!
 * What a log does when it is full.
 *
 * \synopsis
 */
enum class WhenFull : unsigned char
{
    DropOldest, ///< The oldest reading makes place for the new one.
    Refuse = 8, ///< \xref{Log.add} returns false.
    Grow        ///< It takes more memory.
};

/*!
 * \brief Something that can be read.
 *
 * \synopsis
 */
class Source
{
public:
    /*!
     * The number of readings so far.
     *
     * \synopsis
     */
    virtual std::size_t size() const noexcept = 0;

protected:
    ~Source() = default;
};

/*!
 * \brief The last readings of a sensor, the oldest first.
 *
 * \synopsis
 *
 * A reading is a number of the type \tt{T}.
 */
template <typename T>
class Log : public Source
{
public:
    /*!
     * A reading and when it was made.
     */
    struct Entry
    {
        T value;     ///< As the sensor gave it.
        long second; ///< Counted from the start of the log.
    };

    /*!
     * Makes an empty log for \a{limit} readings.
     *
     * \synopsis
     */
    explicit Log(std::size_t limit, WhenFull whenFull = WhenFull::DropOldest);

    std::size_t size() const noexcept override;

    /*!
     * Adds a reading that is made now. False when the log is full and refuses it.
     *
     * \synopsis
     */
    bool add(T value);

    /*!
     * Adds a reading with its time.
     *
     * \synopsis
     */
    bool add(const Entry &entry);

    /*!
     * Whether both logs have the same readings.
     *
     * \synopsis
     */
    bool operator==(const Log &other) const;

    /*!
     * The number of readings for which there is memory at first.
     *
     * \synopsis
     */
    static constexpr std::size_t initialLimit = 64;

private:
    Entry *m_entries = nullptr;
};

/*!
 * \brief A log of temperatures.
 *
 * \synopsis
 */
class Temperatures : public Log<double>
{
};

} // namespace readings

#endif
