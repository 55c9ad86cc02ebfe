namespace tools {

/*!
 * \brief Cups of one kind.
 *
 * \synopsis
 */
template <typename Cup> class Tray
{
public:
    /*!
     * \brief Puts a cup on the tray.
     *
     * \synopsis
     */
    void put(Cup cup);

    /*!
     * \brief Puts a row of cups on the tray.
     *
     * \synopsis
     */
    void put(const Cup *cups, int count) noexcept;
};

} // namespace tools
